#pragma once

#include <map>
#include <string>
#include <vector>

#include "repository/import/metamodel.h"
#include "tests/repository/import/import_fixture.h"

namespace quorel::repository::testing {

/// Imports metamodels from texts and looks at the repository that comes of them.
class MetamodelImport : public ::testing::Test {
  protected:
    using Texts = std::vector<std::pair<std::string, std::string>>;
    using Read = metamodel::Metamodel(const std::vector<std::filesystem::path>&, const OpenSource&,
                                      const ReportProgress&);

    explicit MetamodelImport(Read* read) : read_(read) {}

    metamodel::Outcome import(const Texts& files) {
        std::vector<std::filesystem::path> paths;
        std::map<std::filesystem::path, std::string> contents;
        for (const auto& [name, text] : files) {
            paths.emplace_back(name);
            contents[name] = text;
        }
        const OpenSource open = [&](const std::filesystem::path& path) {
            return std::make_unique<TextSource>(contents.at(path), 4099);
        };
        metamodel::Outcome outcome;
        makeRepositoryFile(folder_.file(), true, [&](Store& store) {
            outcome = metamodel::write(store, read_(paths, open, kNoProgress));
        });
        return outcome;
    }

    /// The files are refused with these words, and no repository is left.
    void expectRefused(const Texts& files, const std::string& words) {
        const automation::Error error = errorOf([&] { import(files); });
        EXPECT_EQ(error.number(), 321);
        EXPECT_NE(std::string(error.what()).find(words), std::string::npos) << error.what();
        EXPECT_EQ(folder_.count(), 0U);
    }

    Repository& repository() {
        if (!repository_) {
            repository_ = automation::make<Repository>();
            repository_->open(folder_.file());
        }
        return *repository_;
    }
    std::vector<std::string> metaNodes() { return namesOf(Object(&repository()).get(u"MetaNodes")); }
    std::vector<std::string> metaLinks() { return namesOf(Object(&repository()).get(u"MetaLinks")); }

    /// "name: type" of every property, enumerations with their values: "name: Enumeration a|b".
    std::vector<std::string> properties(const std::u16string& metaNode) {
        std::vector<std::string> lines;
        const Object type = repository().metaNodes().item(metaNode).toObject();
        for (const Object& property : automation::each(type.get(u"Properties").toObject())) {
            std::string line = textOf(property.get(u"name")) + ": " + textOf(property.get(u"datatype"));
            if (line.ends_with(": Enumeration"))
                line += " " + valuesOf(property);
            lines.push_back(line);
        }
        return lines;
    }
    std::string describedNode(const std::u16string& name) {
        return textOf(repository().metaNodes().item(name).toObject().get(u"Description"));
    }
    std::string describedLink(const std::u16string& name) {
        return textOf(repository().metaLinks().item(name).toObject().get(u"Description"));
    }
    std::string describedProperty(const std::u16string& metaNode, const std::u16string& name) {
        const Object type = repository().metaNodes().item(metaNode).toObject();
        return textOf(type.get(u"Properties").toObject().item(name).toObject().get(u"Description"));
    }

    TemporaryFolder folder_;

  private:
    static std::string valuesOf(const Object& property) {
        std::string values;
        const Value array = property.get(u"Values");
        for (const Value& value : array.getIf<automation::Array>()->items)
            values += (values.empty() ? "" : "|") + textOf(value);
        return values;
    }

    Read* read_;
    automation::Ref<Repository> repository_;
};

using Lines = std::vector<std::string>;

}  // namespace quorel::repository::testing
