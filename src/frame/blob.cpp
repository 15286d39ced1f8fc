#include "frame/blob.h"

#include "frame/attempt.h"
#include "frame/blob_files.h"
#include "frame/blob_text.h"
#include "platform/automation/calls.h"
#include "platform/automation/error.h"

namespace quorel::frame {

using automation::Bytes;
using automation::ClassTable;
using automation::Object;
using automation::param;
using automation::Value;

const ClassTable& Blob::classTable() const {
    static const ClassTable table =
        ClassTable::of<Blob>(u"Blob")
            .objectProperty(u"repObject", &Blob::repObject, &Blob::setRepObject)
            .method(u"setPropertyFromString", &Blob::setPropertyFromString, {param(u"name"), param(u"v")})
            .method(u"getPropertyAsString", &Blob::getPropertyAsString, {param(u"name")})
            .method(u"setPropertyFromByteArray", &Blob::setPropertyFromByteArray,
                    {param(u"name"), param(u"v")})
            .method(u"getPropertyAsByteArray", &Blob::getPropertyAsByteArray, {param(u"name")})
            .method(u"loadPropertyFromFile", &Blob::loadPropertyFromFile,
                    {param(u"name"), param(u"filename")})
            .method(u"storePropertyToFile", &Blob::storePropertyToFile, {param(u"name"), param(u"filename")})
            .method(u"setPropertyFromPicture", &Blob::setPropertyFromPicture, {param(u"name"), param(u"v")})
            .method(u"getPropertyAsPicture", &Blob::getPropertyAsPicture, {param(u"name")})
            .method(u"getAsString", &Blob::getAsString, {param(u"v")})
            .method(u"setAsString", &Blob::setAsString, {param(u"v"), param(u"s")})
            .method(u"Dec", &Blob::Dec, {param(u"aHex")})
            .method(u"PictureFromBits", &Blob::PictureFromBits, {param(u"v")})
            .method(u"StoreToFile", &Blob::StoreToFile, {param(u"v"), param(u"filename")})
            .method(u"LoadFromFile", &Blob::LoadFromFile, {param(u"filename")});
    return table;
}

// Properties. The host may do anything while it is asked.
// ------------------------------------------------------------------------

std::u16string Blob::setPropertyFromString(const std::u16string& name, const std::u16string& v) {
    const std::size_t blank = v.find(u' ');
    Value bytes;
    parseHexText(std::u16string_view(v).substr(blank != std::u16string::npos ? blank + 1 : 0), bytes);
    Object(repObject_).call(u"SetProperty", name, std::move(bytes));
    return {};
}

std::u16string Blob::getPropertyAsString(const std::u16string& name) {
    constexpr std::size_t kDropped = 7;
    const Object object = repObject_;
    const Object definition = object.get(u"Parent").toObject().get(u"Properties", name).toObject();
    if (!definition)
        return {};
    std::u16string text = definition.get(u"Description").toString();
    text.erase(0, kDropped);
    return text + u' ' + hexText(object.call(u"GetProperty", name));
}

void Blob::setPropertyFromByteArray(const std::u16string& name, const Value& v) {
    Object(repObject_).call(u"SetProperty", name, v);
}

Value Blob::getPropertyAsByteArray(const std::u16string& name) {
    return Object(repObject_).call(u"GetProperty", name);
}

void Blob::loadPropertyFromFile(const std::u16string& name, const std::u16string& filename) {
    Object(repObject_).call(u"SetProperty", name, LoadFromFile(filename));
}

void Blob::storePropertyToFile(const std::u16string& name, const std::u16string& filename) {
    const automation::Ref<Blob> alive(this);
    StoreToFile(Object(repObject_).call(u"SetProperty", name), filename);
}

void Blob::setPropertyFromPicture(const std::u16string& /*name*/, const Value& /*v*/) {}

Object Blob::getPropertyAsPicture(const std::u16string& name) {
    const automation::Ref<Blob> alive(this);
    return PictureFromBits(Object(repObject_).call(u"GetProperty", name));
}

// Values.
// ------------------------------------------------------------------------

std::u16string Blob::getAsString(const Value& v) {
    return hexText(v);
}

void Blob::setAsString(Value& v, const std::u16string& s) {
    parseHexText(s, v);
}

std::int32_t Blob::Dec(std::u16string& aHex) {
    return parseHexNumber(aHex);
}

Object Blob::PictureFromBits(const Value& v) noexcept {
    Object picture;
    if (pictures_ != nullptr)
        attempt([&] {
            const auto bytes = ArrayBytes(v).view();
            picture = pictures_->makePicture(ui::checkPictureFile({bytes.begin(), bytes.end()}, u""));
        });
    return picture;
}

void Blob::StoreToFile(const Value& v, const std::u16string& filename) {
    if (!isArray(v))
        return;
    const ArrayBytes bytes(v);
    if (bytes.view().empty())
        throw automation::Error(automation::error_number::kSubscriptOutOfRange);
    storeBytes(bytes.view().first(bytes.view().size() - 1), filename);
}

Value Blob::LoadFromFile(const std::u16string& filename) {
    return Bytes{loadBytes(filename)};
}

}  // namespace quorel::frame
