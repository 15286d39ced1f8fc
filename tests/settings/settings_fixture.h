#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "settings/settings.h"
#include "tests/support/repository_double.h"
#include "tests/support/test_world.h"

namespace quorel::settings {

using automation::make;
using automation::Object;
using automation::Ref;
using automation::Value;
using testing::errorNumber;

/// A host's repository-information object, which is its own generator of identifiers.
class InformationDouble final : public automation::NativeObject {
  public:
    InformationDouble(testing::ScriptRef script, Object repository)
        : script_(std::move(script)), repository_(std::move(repository)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<InformationDouble>(u"Information")
                .readOnly(u"Repository", &InformationDouble::repository)
                .readOnly(u"UUIDGenerator", &InformationDouble::generator)
                .method(u"GetUUID", &InformationDouble::getUuid);
        return table;
    }

  private:
    Object repository() {
        script_->step(u"information.Repository");
        return repository_;
    }
    Object generator() {
        script_->step(u"information.UUIDGenerator");
        return this;
    }
    std::u16string getUuid() {
        script_->step(u"generator.GetUUID");
        return u"uuid" + automation::decimal(++given_);
    }
    testing::ScriptRef script_;
    Object repository_;
    int given_ = 0;
};

/// A store whose reads and writes can be made to fail.
class StoreDouble final : public shell::SettingsStore {
  public:
    explicit StoreDouble(shell::SettingsStore& inner) : inner_(inner) {}
    bool failsOnRead = false;
    bool failsOnWrite = false;
    std::vector<std::u16string> written;

    std::optional<std::u16string> read(std::u16string_view application, std::u16string_view section,
                                       std::u16string_view key) override {
        if (failsOnRead)
            throw automation::Error(automation::error_number::kPathFileAccess);
        return inner_.read(application, section, key);
    }
    void write(std::u16string_view application, std::u16string_view section, std::u16string_view key,
               std::u16string_view value) override {
        if (failsOnWrite)
            throw automation::Error(automation::error_number::kPathFileAccess, u"The store is full");
        inner_.write(application, section, key, value);
        written.push_back(std::u16string(key) + u"=" + std::u16string(value));
    }

  private:
    shell::SettingsStore& inner_;
};

/// A repository with the types of settings and a list of the category "Browser".
struct SettingsModel {
    testing::ScriptRef script = std::make_shared<testing::Script>();
    Ref<testing::RepositoryDouble> repository = make<testing::RepositoryDouble>(script);
    Ref<testing::MetaDouble> listType = repository->addMetaNode(u"SettingList");
    Ref<testing::MetaDouble> settingType = repository->addMetaNode(u"Setting");
    Ref<testing::MetaDouble> linkType =
        repository->addMetaLink(u"SettingList.Has.Setting", listType, settingType);
    Ref<testing::InstanceDouble> list = repository->addNode(listType, u"Browser");
    Ref<InformationDouble> information = make<InformationDouble>(script, repository);

    SettingsModel() {
        for (const char16_t* property : {u"Value", u"EditType", u"EditCategory", u"EditDescription"})
            settingType->withProperty(property, u"String");
    }
    ~SettingsModel() { repository->clear(); }
    SettingsModel(const SettingsModel&) = delete;
    SettingsModel& operator=(const SettingsModel&) = delete;

    [[nodiscard]] testing::InstanceDouble* setting(std::u16string_view name) const {
        for (const auto& [key, node] : settingType->extension->items) {
            auto* const instance = dynamic_cast<testing::InstanceDouble*>(node.native());
            if (instance->shownName == name)
                return instance;
        }
        return nullptr;
    }
    [[nodiscard]] std::u16string property(std::u16string_view name, const std::u16string& property) const {
        const auto* const node = setting(name);
        const auto found = node->values.find(property);
        return found != node->values.end() ? found->second.toString() : u"(unset)";
    }
    [[nodiscard]] std::size_t settingCount() const { return settingType->extension->items.size(); }
};

}  // namespace quorel::settings
