#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "platform/automation/calls.h"
#include "platform/automation/error.h"
#include "platform/automation/text.h"
#include "repository/repository.h"
#include "tests/repository/temporary_folder.h"

namespace quorel::repository::testing {

using automation::Object;
using automation::Value;

/// The error that `body` throws; fails the test when it throws none.
inline automation::Error errorOf(const std::function<void()>& body) {
    try {
        body();
    } catch (const automation::Error& error) {
        return error;
    }
    ADD_FAILURE() << "no error was thrown";
    return automation::Error(0, u"");
}

[[nodiscard]] inline std::string textOf(const Value& value) {
    return automation::toUtf8(value.toString());
}

/// "b7" of "b" and 7.
[[nodiscard]] inline std::u16string numbered(std::u16string_view prefix, int number) {
    std::u16string text(prefix);
    return text.append(automation::decimal(number));
}

/// The names of a collection's elements in their order.
[[nodiscard]] inline std::vector<std::string> namesOf(const Value& collection) {
    std::vector<std::string> names;
    for (const Object& each : automation::each(collection.toObject()))
        names.push_back(textOf(each.get(u"name")));
    return names;
}

/// A new repository of books and authors, called as a host calls it.
class LibraryTest : public ::testing::Test {
  protected:
    LibraryTest() {
        native_->create(folder_.file());
        repository_ = Object(native_);
        const Object book = repository_.call(u"MakeMetaNode", u"Book", u"A printed work").toObject();
        book.call(u"MakeMetaProperty", u"Pages", u"Integer");
        book.call(u"MakeMetaProperty", u"Subtitle", u"String", u"The text below the title");
        book.call(u"MakeMetaProperty", u"Price", u"Double");
        book.call(u"MakeMetaProperty", u"InPrint", u"Boolean");
        book.call(u"MakeMetaProperty", u"Published", u"Date");
        book.call(u"MakeMetaProperty", u"Binding", u"Enumeration", u"", u"Hardcover,Paperback");
        book.call(u"MakeMetaProperty", u"Cover", u"Binary", u"Binary PNG");
        repository_.call(u"MakeMetaNode", u"Author");
        const Object wrote =
            repository_.call(u"MakeMetaLink", u"Author.Wrote.Book", u"Author", u"Book", u"Authorship")
                .toObject();
        wrote.call(u"MakeMetaProperty", u"Role", u"String");
    }

    Object makeBook(const std::u16string& name, const std::u16string& identifier) {
        return repository_.call(u"MakeNode", u"Book", name, identifier).toObject();
    }
    Object makeAuthor(const std::u16string& name, const std::u16string& identifier) {
        return repository_.call(u"MakeNode", u"Author", name, identifier).toObject();
    }
    Object link(const Object& author, const Object& book, const std::u16string& identifier) {
        return repository_.call(u"MakeLink", u"Author.Wrote.Book", u"", identifier, author, book).toObject();
    }
    Object extension(const std::u16string& type) {
        return repository_.get(u"MetaNodes", type).toObject().get(u"Extension").toObject();
    }
    Object linkExtension() {
        return repository_.get(u"MetaLinks", u"Author.Wrote.Book").toObject().get(u"Extension").toObject();
    }
    /// Lets go of everything and opens the file anew.
    void reopen() {
        repository_.reset();
        native_ = automation::make<Repository>();
        native_->open(folder_.file());
        repository_ = Object(native_);
    }

    TemporaryFolder folder_;
    automation::Ref<Repository> native_ = automation::make<Repository>();
    Object repository_;
};

}  // namespace quorel::repository::testing
