#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/calls.h"
#include "platform/automation/class_table.h"
#include "platform/automation/error.h"
#include "platform/automation/native_object.h"

namespace quorel::testing {

/// What every object of a repository double tells when one of its members is called: the script writes it
/// down, may act, and fails one call on demand.
class Script {
  public:
    /// The number of the call that fails, counted from the last `restart`; 0 lets all succeed.
    void restart(int failingCall = 0) {
        calls_ = 0;
        failingCall_ = failingCall;
        log.clear();
    }
    /// Writes the call down, lets `onCall` act, then fails if it is its turn.
    void step(const std::u16string& call);
    [[nodiscard]] int calls() const noexcept { return calls_; }
    [[nodiscard]] bool hasFailed() const noexcept { return failingCall_ != 0 && calls_ >= failingCall_; }

    std::vector<std::u16string> log;
    std::function<void(const std::u16string&)> onCall;
    /// Comes right before the failing call fails.
    std::function<void()> onFailure;

  private:
    int calls_ = 0;
    int failingCall_ = 0;
};

using ScriptRef = std::shared_ptr<Script>;

/// A keyed, enumerable list of objects with `Item`, `Count` and `Remove`.
class CollectionDouble final : public automation::NativeObject {
  public:
    CollectionDouble(ScriptRef script, std::u16string label)
        : script_(std::move(script)), label_(std::move(label)) {}

    [[nodiscard]] const automation::ClassTable& classTable() const override;
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override;

    /// In the order in which they were added. Changed by tests without a trace in the script.
    std::vector<std::pair<std::u16string, automation::Object>> items;
    void add(const std::u16string& key, automation::Object object) {
        items.emplace_back(key, std::move(object));
    }

  private:
    class Reader;
    /// By key, or by position from 1.
    automation::Object item(const automation::Value& key);
    std::int32_t count();
    void remove(const std::u16string& key, bool& removed);

    ScriptRef script_;
    std::u16string label_;
};

class MetaPropertyDouble final : public automation::NativeObject {
  public:
    MetaPropertyDouble(ScriptRef script, std::u16string name, std::u16string type)
        : script_(std::move(script)), name_(std::move(name)), type_(std::move(type)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;

  private:
    std::u16string name();
    std::u16string datatype();
    ScriptRef script_;
    std::u16string name_, type_;
};

/// A meta node, or, with ends, a meta link.
class MetaDouble final : public automation::NativeObject {
  public:
    MetaDouble(ScriptRef script, std::u16string metaName, automation::Ref<MetaDouble> from = {},
               automation::Ref<MetaDouble> to = {}, automation::Object owner = {});
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    MetaDouble& withProperty(const std::u16string& property, const std::u16string& type);

    const std::u16string metaName;
    automation::Ref<CollectionDouble> extension;
    automation::Ref<CollectionDouble> properties;
    automation::Ref<CollectionDouble> outgoingLinks;
    automation::Ref<CollectionDouble> incomingLinks;
    automation::Object owner;
    std::u16string description;
    bool isDynamicNow = false;
    bool isPersistentNow = true;

  private:
    [[nodiscard]] bool isLink() const noexcept { return static_cast<bool>(from_); }
    std::u16string name();
    automation::Object readExtension();
    automation::Object readProperties();
    automation::Object outgoing();
    automation::Object incoming();
    automation::Object source();
    automation::Object target();
    std::u16string sourceName();
    std::u16string targetName();
    automation::Object parent();
    bool isPersistent();
    void setPersistent(bool persistent);
    bool isDynamic();
    void note(const char16_t* member);

    ScriptRef script_;
    automation::Ref<MetaDouble> from_, to_;
};

/// A node, or, with ends, a link. Its properties, those that its type declares and those that it has values
/// of, are members, too; "Name" answers as a property.
class InstanceDouble final : public automation::NativeObject {
  public:
    InstanceDouble(ScriptRef script, automation::Ref<MetaDouble> type, std::u16string name,
                   std::u16string identifier, automation::Object from = {}, automation::Object to = {});
    [[nodiscard]] const automation::ClassTable& classTable() const override;
    std::optional<automation::MemberId> resolveExtra(std::u16string_view name) override;
    automation::Value invokeExtra(automation::MemberId id, automation::InvokeKind kind,
                                  std::span<automation::Argument> arguments) override;

    std::u16string shownName;
    const std::u16string identifier;
    std::map<std::u16string, automation::Value> values;
    /// The node's links by meta link.
    std::map<std::u16string, automation::Ref<CollectionDouble>> outgoingLinks, incomingLinks;

  private:
    friend class RepositoryDouble;
    std::u16string name();
    automation::Object outgoing(const std::u16string& metaLink);
    automation::Object incoming(const std::u16string& metaLink);
    automation::Ref<CollectionDouble> linksIn(
        std::map<std::u16string, automation::Ref<CollectionDouble>>& links, const std::u16string& metaLink,
        std::u16string_view member);
    void setName(const std::u16string& name);
    std::u16string readIdentifier();
    automation::Object parent();
    automation::Object source();
    automation::Object target();
    automation::Object properties();
    automation::Value getProperty(const std::u16string& property);
    void setProperty(const std::u16string& property, const automation::Value& value);
    void note(const std::u16string& member);

    ScriptRef script_;
    automation::Ref<MetaDouble> type_;
    automation::Object from_, to_;
};

/// A repository in memory whose every member call passes through a script. `clear` must be called when a test
/// is done with it, for its objects know each other.
class RepositoryDouble final : public automation::NativeObject {
  public:
    explicit RepositoryDouble(ScriptRef script);
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    automation::Ref<MetaDouble> addMetaNode(const std::u16string& name);
    automation::Ref<MetaDouble> addMetaLink(const std::u16string& name,
                                            const automation::Ref<MetaDouble>& from,
                                            const automation::Ref<MetaDouble>& to);
    automation::Ref<InstanceDouble> addNode(const automation::Ref<MetaDouble>& type,
                                            const std::u16string& name);
    automation::Ref<InstanceDouble> addLink(const automation::Ref<MetaDouble>& type,
                                            const std::u16string& name,
                                            const automation::Ref<InstanceDouble>& from,
                                            const automation::Ref<InstanceDouble>& to);
    /// Lets go of everything, so that nothing holds itself alive.
    void clear();

    automation::Ref<CollectionDouble> metaNodes;
    automation::Ref<CollectionDouble> metaLinks;
    std::u16string shownName = u"People", shownDescription = u"Who knows whom", repType = u"Model",
                   version = u"1.2";

  private:
    std::u16string name();
    std::u16string readDescription();
    std::u16string readRepType();
    std::u16string readVersion();
    automation::Object readMetaNodes();
    automation::Object readMetaLinks();
    automation::Object makeNode(const std::u16string& type, const std::u16string& name,
                                const std::u16string& identifier);
    automation::Object makeLink(const std::u16string& type, const std::u16string& name,
                                const std::u16string& identifier, const automation::Object& from,
                                const automation::Object& to);
    automation::Object makeDynamicMetaClass(const std::u16string& name, const std::u16string& description);
    automation::Object makeDynamicMetaAssoc(const std::u16string& name, const std::u16string& description);
    void deleteDynamicMetaClass(const std::u16string& name);
    void deleteDynamicMetaAssoc(const std::u16string& name);
    [[nodiscard]] automation::Ref<MetaDouble> typeNamed(std::u16string_view name) const;
    automation::Ref<InstanceDouble> insert(const automation::Ref<MetaDouble>& type,
                                           const std::u16string& name, const std::u16string& identifier,
                                           const automation::Object& from, const automation::Object& to);
    [[nodiscard]] std::u16string nextIdentifier();

    ScriptRef script_;
    std::vector<automation::Ref<MetaDouble>> types_;
    std::vector<automation::Ref<InstanceDouble>> instances_;
    int made_ = 0;
};

/// Whatever has a `Repository`: what a manager returns, a package object.
class RepositoryHolderDouble final : public automation::NativeObject {
  public:
    RepositoryHolderDouble(ScriptRef script, automation::Object repository)
        : script_(std::move(script)), repository_(std::move(repository)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;

  private:
    automation::Object repository();
    ScriptRef script_;
    automation::Object repository_;
};

/// Opens the repositories that a test has put under file names; `chosen` is what the user chooses in its
/// dialog.
class RepositoryManagerDouble final : public automation::NativeObject {
  public:
    explicit RepositoryManagerDouble(ScriptRef script) : script_(std::move(script)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    std::map<std::u16string, automation::Object> files;
    automation::Object chosen;

  private:
    automation::Object selectDialog();
    automation::Object open(const std::u16string& fileName);
    ScriptRef script_;
};

}  // namespace quorel::testing
