#pragma once

#include <string>

#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"
#include "platform/shell/settings_store.h"

namespace quorel::settings {

/// The public class "QuorelUtility.Settings": named texts of one category. A value is kept in the per-user
/// store; what the setting is, and the value once more, in a "Setting" node of the host's repository, which
/// the category's "SettingList" node has a link to.
///
/// Nothing is caught: what the repository or the store throws reaches the host. All members that look for a
/// setting are error 91 while the category has no list.
class Settings final : public automation::NativeObject {
  public:
    explicit Settings(shell::SettingsStore& store) noexcept : store_(store) {}

    [[nodiscard]] const automation::ClassTable& classTable() const override;

    void Create() noexcept {}
    /// Finds the category's list: the last one of exactly that name. There may be none; none is made. A
    /// failure leaves everything as it was.
    void Init(const std::u16string& applicationTitle, const std::u16string& category,
              const automation::Object& appREPInfo);
    /// Forgets the two names, under which the store is addressed; list and repository stay.
    void Deinit() noexcept;
    void Destroy() noexcept {}

    /// True when there is NO such setting, and `avalue` stays; otherwise false, and `avalue` is what is
    /// stored under the node's name, or `aDefault` when nothing is.
    bool GetEntry(const std::u16string& aSettingSpec, std::u16string& avalue,
                  const std::u16string& aDefault = {});
    [[nodiscard]] bool hasEntry(const std::u16string& aSettingSpec);
    /// Stores a value, and makes the setting when there is none. Always true.
    bool SetEntry(const std::u16string& aSettingSpec, const std::u16string& avalue);
    /// Declares a setting and makes its stored value current; without one, `aDefault`, which is stored then.
    /// `aDefault` becomes that value. Always true.
    bool initSetting(const std::u16string& aSettingSpec, std::u16string& aDefault,
                     const std::u16string& anEditType, const std::u16string& anEditCategory,
                     const std::u16string& anEditDescription);
    /// The category's list, or nothing.
    [[nodiscard]] automation::Object getSettings() const { return settingList_; }
    /// The first object at the other end of a link of `repObject` whose property equals the value; nothing if
    /// there is none.
    [[nodiscard]] automation::Object SearchLinkedObject(const automation::Object& repObject,
                                                        const std::u16string& Link, bool outgoing,
                                                        const std::u16string& prop,
                                                        const automation::Value& Value);

  private:
    [[nodiscard]] automation::Object findSetting(const std::u16string& spec);
    /// Makes the node, lets `prepare` fill it, then links it to the list.
    template <class Prepare>
    automation::Object makeSetting(const std::u16string& spec, Prepare&& prepare);
    [[nodiscard]] std::u16string readSetting(const std::u16string& key, const std::u16string& fallback);
    void saveSetting(const std::u16string& key, const std::u16string& value);

    shell::SettingsStore& store_;
    std::u16string category_;          ///< the application in the store
    std::u16string applicationTitle_;  ///< the section in the store
    automation::Object settingList_;
    automation::Object appREPInfo_;
};

}  // namespace quorel::settings
