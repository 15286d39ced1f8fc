#include "platform/controls/file_selection.h"

#include "platform/automation/error.h"
#include "platform/controls/cell_text.h"
#include "platform/controls/file_types.h"

namespace quorel::controls {

using automation::ClassTable;
using automation::param;
using automation::Value;

namespace {

/// The folder part of a path; "" when it has none.
[[nodiscard]] std::u16string folderOf(const std::u16string& path) {
    const std::size_t end = path.find_last_of(u"/\\");
    return end == std::u16string::npos ? std::u16string() : path.substr(0, end + 1);
}

}  // namespace

FileSelection::FileSelection(shell::FileDialogs* dialogs)
    : dialogs_(dialogs),
      attributes_{{u"FilePath", u""},
                  {u"Mode", u"File"},
                  {u"DefaultExtension", u""},
                  {u"Filter", u""},
                  {u"Message", u""}} {}

const ClassTable& FileSelection::classTable() const {
    static const ClassTable table =
        ClassTable::of<FileSelection>(u"FileSelector")
            .method(u"SetAttribute", &FileSelection::SetAttribute, {param(u"name"), param(u"value")})
            .method(u"GetAttribute", &FileSelection::GetAttribute, {param(u"name")})
            .method(u"Browse", &FileSelection::Browse);
    return table;
}

void FileSelection::SetAttribute(const std::u16string& name, const Value& value) {
    attributes_[name] = value;
}

Value FileSelection::GetAttribute(const std::u16string& name) const {
    const auto found = attributes_.find(name);
    return found != attributes_.end() ? found->second : Value();
}

std::u16string FileSelection::text(std::u16string_view attribute) const {
    return valueText(GetAttribute(std::u16string(attribute)));
}

bool FileSelection::isDirectory() const {
    return automation::equalsIgnoringCase(text(u"Mode"), u"Directory");
}

bool FileSelection::Browse() {
    if (dialogs_ == nullptr)
        throw automation::Error(automation::error_number::kInvalidCall, u"There are no dialogs for files");
    const automation::Ref<FileSelection> alive(this);
    const std::u16string path = text(u"FilePath");
    shell::FileDialogs::Request request{text(u"Message"), isDirectory() ? path : folderOf(path), path};
    request.filter = text(u"Filter");
    request.defaultExtension = text(u"DefaultExtension");
    auto chosen = isDirectory() ? dialogs_->chooseFolder(request) : dialogs_->openFile(request);
    if (!chosen)
        return false;
    SetAttribute(u"FilePath", *std::move(chosen));
    return true;
}

void registerFileClasses(automation::ClassRegistry& classes, shell::FileDialogs* dialogs) {
    using automation::make;
    using automation::Object;
    classes.add(u"VardekFileSelector.FileSelector",
                [dialogs] { return Object(make<FileSelection>(dialogs)); });
    classes.add(u"VardekFileAccess.c_FileType", [] { return Object(make<FileTypes>()); });
}

}  // namespace quorel::controls
