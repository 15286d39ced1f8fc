// Binary properties of a repository object.

#include "frame/blob.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "platform/automation/error.h"
#include "tests/support/picture_bytes.h"
#include "tests/support/test_world.h"

namespace quorel::frame {
namespace {

using automation::Bytes;
using automation::ClassTable;
using automation::Object;
using automation::param;
using automation::Ref;
using automation::Value;
using testing::errorNumber;

/// A repository object with one binary property; it is its own type, and that type's collection of
/// definitions.
class BinaryDouble final : public automation::NativeObject {
  public:
    [[nodiscard]] const ClassTable& classTable() const override {
        static const ClassTable table =
            ClassTable::of<BinaryDouble>(u"Binary")
                .method(u"GetProperty", &BinaryDouble::getProperty, {param(u"name")})
                .method(u"SetProperty", &BinaryDouble::setProperty,
                        {param(u"name"), param(u"value", Value::missing())})
                .readOnly(u"Parent", &BinaryDouble::self)
                .method(u"Properties", &BinaryDouble::definition, {param(u"name")})
                .readOnly(u"Description", &BinaryDouble::describe);
        return table;
    }
    Value value;
    std::u16string description = u"Binary picture";
    bool isDefined = true;
    std::vector<std::u16string> log;
    std::function<void()> onCall;

  private:
    void note(std::u16string call) {
        log.push_back(std::move(call));
        if (onCall)
            onCall();
    }
    Value getProperty(const std::u16string& name) {
        note(u"get " + name);
        checkName(name);
        return value;
    }
    Value setProperty(const std::u16string& name, const Value& given) {
        note((given.isMissing() ? u"ask " : u"set ") + name);
        checkName(name);
        if (given.isMissing())
            return value;
        value = given;
        return {};
    }
    Object self() { return Object(this); }
    Object definition(const std::u16string& name) {
        checkName(name);
        return isDefined ? Object(this) : Object();
    }
    std::u16string describe() { return description; }
    static void checkName(const std::u16string& name) {
        if (name != u"Icon")
            throw automation::Error(9, u"There is no property " + name);
    }
};

class BlobProperties : public ::testing::Test {
  protected:
    BlobProperties() { blob_.putRef(u"repObject", Object(double_)); }
    ~BlobProperties() override { std::filesystem::remove(file_); }

    [[nodiscard]] const Bytes& stored() const { return *double_->value.getIf<Bytes>(); }
    void writeFile(const std::string& content) const { std::ofstream(file_, std::ios::binary) << content; }
    [[nodiscard]] std::string readFile() const {
        std::ifstream in(file_, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
    }

    testing::TestWorld world_;
    Object blob_ = automation::make<Blob>(&world_.pictureObjects);
    Ref<BinaryDouble> double_ = automation::make<BinaryDouble>();
    std::filesystem::path file_ = std::filesystem::temp_directory_path() /
                                  ("quorel_blob_" + std::to_string(reinterpret_cast<std::uintptr_t>(this)));
};

TEST_F(BlobProperties, HoldsTheRepositoryObject) {
    EXPECT_EQ(blob_.get(u"repObject").toObject(), Object(double_));
    blob_.putRef(u"repObject", Object());
    EXPECT_FALSE(blob_.get(u"repObject").toObject());
}

TEST_F(BlobProperties, EveryOperationWithoutAnObjectIsError91) {
    blob_.putRef(u"repObject", Object());
    writeFile("x");
    for (const std::u16string_view member :
         {u"getPropertyAsString", u"getPropertyAsByteArray", u"getPropertyAsPicture"})
        EXPECT_EQ(errorNumber([&] { blob_.call(member, u"Icon"); }), 91);
    EXPECT_EQ(errorNumber([&] { blob_.call(u"setPropertyFromString", u"Icon", u"FF"); }), 91);
    for (const std::u16string_view member :
         {u"setPropertyFromByteArray", u"loadPropertyFromFile", u"storePropertyToFile"})
        EXPECT_EQ(errorNumber([&] { blob_.call(member, u"Icon", file_.u16string()); }), 91);
}

TEST_F(BlobProperties, ATextIsTypeBlankAndBytes) {
    double_->value = Bytes{{0x00, 0x0F, 0xA0}};
    EXPECT_EQ(blob_.call(u"getPropertyAsString", u"Icon").toString(), u"picture 000FA0");
    double_->description = u"Binary ";
    EXPECT_EQ(blob_.call(u"getPropertyAsString", u"Icon").toString(), u" 000FA0");
    double_->description = u"Bin";
    double_->value = Value(u"no bytes");
    EXPECT_EQ(blob_.call(u"getPropertyAsString", u"Icon").toString(), u" ");
}

TEST_F(BlobProperties, WithoutADefinitionThereIsNoText) {
    double_->isDefined = false;
    EXPECT_EQ(blob_.call(u"getPropertyAsString", u"Icon").toString(), u"");
    EXPECT_TRUE(double_->log.empty());
}

TEST_F(BlobProperties, TheTextAfterTheFirstBlankIsStored) {
    const auto set = [&](std::u16string_view text) {
        return blob_.call(u"setPropertyFromString", u"Icon", text).toString();
    };
    EXPECT_EQ(set(u"picture 000FA0"), u"");
    EXPECT_EQ(stored(), (Bytes{{0x00, 0x0F, 0xA0}}));
    set(u"FF01");
    EXPECT_EQ(stored(), (Bytes{{0xFF, 0x01}}));
    set(u" a b ");
    EXPECT_EQ(stored(), (Bytes{{0xAA, 0xBB}})) << "the second blank counts as the digit before it";
    set(u"picture ");
    EXPECT_TRUE(double_->value.isEmpty()) << "an empty text makes no array";
    EXPECT_EQ(errorNumber([&] { set(u"picture 123"); }), 9);
}

TEST_F(BlobProperties, BytesPassAsTheyAre) {
    EXPECT_TRUE(blob_.call(u"setPropertyFromByteArray", u"Icon", Bytes{{1, 2}}).isEmpty());
    EXPECT_EQ(stored(), (Bytes{{1, 2}}));
    EXPECT_EQ(*blob_.call(u"getPropertyAsByteArray", u"Icon").getIf<Bytes>(), (Bytes{{1, 2}}));
}

TEST_F(BlobProperties, AFileIsLoadedWithAByteMoreAndStoredWithAByteLess) {
    writeFile("abc");
    EXPECT_TRUE(blob_.call(u"loadPropertyFromFile", u"Icon", file_.u16string()).isEmpty());
    EXPECT_EQ(stored(), (Bytes{{'a', 'b', 'c', 0}}));
    writeFile("");
    EXPECT_TRUE(blob_.call(u"storePropertyToFile", u"Icon", file_.u16string()).isEmpty());
    EXPECT_EQ(readFile(), "abc");
    EXPECT_EQ(double_->log, (std::vector<std::u16string>{u"set Icon", u"ask Icon"}));
}

TEST_F(BlobProperties, WhatSetPropertyAnswersIsStoredAndNoArrayIsNot) {
    double_->value = Value(u"text");
    blob_.call(u"storePropertyToFile", u"Icon", file_.u16string());
    EXPECT_FALSE(std::filesystem::exists(file_));
}

TEST_F(BlobProperties, APictureOfThePropertyOrNothing) {
    double_->value = Bytes{testing::pngBytes(96, 48, 1, 2, 3)};
    const Object picture = blob_.call(u"getPropertyAsPicture", u"Icon").toObject();
    ASSERT_TRUE(picture);
    EXPECT_EQ(picture.get(u"Width").toInteger(), 2540);
    EXPECT_EQ(picture.get(u"Height").toInteger(), 1270);
    double_->value = Value(u"no picture");
    EXPECT_FALSE(blob_.call(u"getPropertyAsPicture", u"Icon").toObject());
    EXPECT_TRUE(blob_.call(u"setPropertyFromPicture", u"Icon", picture).isEmpty());
    EXPECT_EQ(double_->log.size(), 2U) << "nothing is stored";
}

TEST_F(BlobProperties, WhatTheRepositoryFailsWithGoesToTheHost) {
    writeFile("x");
    for (const std::u16string_view member :
         {u"getPropertyAsString", u"getPropertyAsByteArray", u"getPropertyAsPicture"})
        EXPECT_EQ(errorNumber([&] { blob_.call(member, u"Missing"); }), 9);
    EXPECT_EQ(errorNumber([&] { blob_.call(u"setPropertyFromString", u"Missing", u"FF"); }), 9);
    for (const std::u16string_view member :
         {u"setPropertyFromByteArray", u"loadPropertyFromFile", u"storePropertyToFile"})
        EXPECT_EQ(errorNumber([&] { blob_.call(member, u"Missing", file_.u16string()); }), 9);
}

TEST_F(BlobProperties, TheHostMayDropTheObjectWhileItIsAsked) {
    const std::int64_t before = automation::NativeObject::liveCount();
    {
        auto blob = automation::make<Blob>(&world_.pictureObjects);
        const auto other = automation::make<BinaryDouble>();
        other->value = Bytes{testing::pngBytes(1, 1, 1, 2, 3)};
        blob->setRepObject(Object(other));
        other->onCall = [&] {
            blob->setRepObject(Object());
            blob.reset();
        };
        EXPECT_TRUE(blob->getPropertyAsPicture(u"Icon"));
    }
    EXPECT_EQ(automation::NativeObject::liveCount(), before);
}

}  // namespace
}  // namespace quorel::frame
