#include "settings/settings.h"

#include "platform/automation/calls.h"
#include "settings/setting_names.h"

namespace quorel::settings {

using automation::Object;
using automation::Value;

const automation::ClassTable& Settings::classTable() const {
    using automation::param;
    static const automation::ClassTable table =
        automation::ClassTable::of<Settings>(u"Settings")
            .method(u"Create", &Settings::Create)
            .method(u"Init", &Settings::Init,
                    {param(u"applicationTitle"), param(u"category"), param(u"appREPInfo")})
            .method(u"Deinit", &Settings::Deinit)
            .method(u"Destroy", &Settings::Destroy)
            .method(u"GetEntry", &Settings::GetEntry,
                    {param(u"aSettingSpec"), param(u"avalue"), param(u"aDefault", u"")})
            .method(u"hasEntry", &Settings::hasEntry, {param(u"aSettingSpec")})
            .method(u"SetEntry", &Settings::SetEntry, {param(u"aSettingSpec"), param(u"avalue")})
            .method(u"initSetting", &Settings::initSetting,
                    {param(u"aSettingSpec"), param(u"aDefault"), param(u"anEditType"),
                     param(u"anEditCategory"), param(u"anEditDescription")})
            .method(u"getSettings", &Settings::getSettings)
            .method(
                u"SearchLinkedObject", &Settings::SearchLinkedObject,
                {param(u"repObject"), param(u"Link"), param(u"outgoing"), param(u"prop"), param(u"Value")});
    return table;
}

void Settings::Init(const std::u16string& applicationTitle, const std::u16string& category,
                    const Object& appREPInfo) {
    const Object repository = appREPInfo.get(u"Repository").toObject();
    const Object type = repository.call(u"MetaNodes", names::kSettingList).toObject();
    Object list;
    for (const Object& node : automation::each(type.get(u"Extension").toObject()))
        if (Value::equal(node.get(u"name"), Value(category)))
            list = node;
    settingList_ = std::move(list);
    applicationTitle_ = applicationTitle;
    category_ = category;
    appREPInfo_ = appREPInfo;
}

void Settings::Deinit() noexcept {
    category_.clear();
    applicationTitle_.clear();
}

bool Settings::GetEntry(const std::u16string& aSettingSpec, std::u16string& avalue,
                        const std::u16string& aDefault) {
    const Object setting = findSetting(aSettingSpec);
    if (!setting)
        return true;
    avalue = readSetting(setting.get(u"name").toString(), aDefault);
    return false;
}

bool Settings::hasEntry(const std::u16string& aSettingSpec) {
    return IsObjectSet(findSetting(aSettingSpec));
}

bool Settings::SetEntry(const std::u16string& aSettingSpec, const std::u16string& avalue) {
    const auto setValue = [&avalue](const Object& node) { node.put(names::kValue, avalue); };
    if (const Object setting = findSetting(aSettingSpec))
        setValue(setting);
    else
        makeSetting(aSettingSpec, setValue);
    saveSetting(aSettingSpec, avalue);
    return true;
}

bool Settings::initSetting(const std::u16string& aSettingSpec, std::u16string& aDefault,
                           const std::u16string& anEditType, const std::u16string& anEditCategory,
                           const std::u16string& anEditDescription) {
    aDefault = readSetting(aSettingSpec, aDefault);
    Object setting = findSetting(aSettingSpec);
    if (!setting)
        setting = makeSetting(aSettingSpec, [](const Object&) {});
    setting.put(names::kValue, aDefault);
    setting.put(names::kEditType, anEditType);
    setting.put(names::kEditCategory, anEditCategory);
    setting.put(names::kEditDescription, anEditDescription);
    saveSetting(aSettingSpec, aDefault);
    return true;
}

Object Settings::SearchLinkedObject(const Object& repObject, const std::u16string& Link, bool outgoing,
                                    const std::u16string& prop, const automation::Value& Value) {
    const std::u16string_view direction = outgoing ? u"Outgoing_" : u"Incoming_";
    const std::u16string_view end = outgoing ? u"target" : u"source";
    for (const Object& link : automation::each(repObject.call(direction, Link).toObject())) {
        Object found = link.get(end).toObject();
        if (automation::Value::equal(Value, found.call(u"Prop_", prop)))
            return found;
    }
    return {};
}

Object Settings::findSetting(const std::u16string& spec) {
    // The repository may come back and have another category initialised.
    const Object list = settingList_;
    return SearchLinkedObject(list, std::u16string(names::kListHasSetting), true,
                              std::u16string(names::kName), spec);
}

template <class Prepare>
Object Settings::makeSetting(const std::u16string& spec, Prepare&& prepare) {
    const Object information = appREPInfo_;
    const Object list = settingList_;
    const auto repository = [&information] { return information.get(u"Repository").toObject(); };
    const auto newIdentifier = [&information] {
        return information.get(u"UUIDGenerator").toObject().call(u"GetUUID");
    };
    const Object node = repository().call(u"MakeNode", names::kSetting, spec, newIdentifier()).toObject();
    prepare(node);
    repository().call(u"MakeLink", names::kListHasSetting, u"", newIdentifier(), list, node);
    return node;
}

std::u16string Settings::readSetting(const std::u16string& key, const std::u16string& fallback) {
    return store_.read(category_, applicationTitle_, key).value_or(fallback);
}

void Settings::saveSetting(const std::u16string& key, const std::u16string& value) {
    store_.write(category_, applicationTitle_, key, value);
}

}  // namespace quorel::settings
