#pragma once

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/automation/class_table.h"
#include "platform/automation/error.h"
#include "platform/automation/native_object.h"
#include "platform/automation/text.h"

namespace quorel::testing {

/// A meta property with everything that one may tell. `asked` counts the reads of its members.
class DefinitionDouble final : public automation::NativeObject {
  public:
    struct Texts {
        std::u16string name{}, datatype = u"String", category{}, description{};
        automation::Value values{};
        bool readOnly = false;
    };
    explicit DefinitionDouble(Texts given) : texts(std::move(given)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<DefinitionDouble>(u"MetaProperty")
                .readOnly(u"name", &DefinitionDouble::name)
                .readOnly(u"datatype", &DefinitionDouble::datatype)
                .readOnly(u"Category", &DefinitionDouble::category)
                .readOnly(u"Description", &DefinitionDouble::description)
                .readOnly(u"Values", &DefinitionDouble::values)
                .readOnly(u"ReadOnly", &DefinitionDouble::readOnly);
        return table;
    }
    Texts texts;
    int asked = 0;

  private:
    std::u16string name() { return ++asked, texts.name; }
    std::u16string datatype() { return ++asked, texts.datatype; }
    std::u16string category() { return texts.category; }
    std::u16string description() { return ++asked, texts.description; }
    automation::Value values() { return ++asked, texts.values; }
    bool readOnly() { return ++asked, texts.readOnly; }
};

/// A collection of definitions, and the meta object that answers it as `Properties`.
class DefinitionsDouble final : public automation::NativeObject {
  public:
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<DefinitionsDouble>(u"MetaNode")
                .readOnly(u"Properties", &DefinitionsDouble::properties);
        return table;
    }
    [[nodiscard]] std::unique_ptr<automation::Enumerator> enumerate() override {
        class Reader final : public automation::Enumerator {
          public:
            explicit Reader(automation::Ref<DefinitionsDouble> list) : list_(std::move(list)) {}
            std::size_t next(std::span<automation::Value> values) override {
                std::size_t count = 0;
                while (count < values.size() && at_ < list_->items.size())
                    values[count++] = list_->items[at_++];
                return count;
            }

          private:
            automation::Ref<DefinitionsDouble> list_;
            std::size_t at_ = 0;
        };
        return std::make_unique<Reader>(automation::Ref<DefinitionsDouble>(this));
    }
    automation::Ref<DefinitionDouble> add(DefinitionDouble::Texts texts) {
        items.push_back(automation::make<DefinitionDouble>(std::move(texts)));
        return items.back();
    }
    std::vector<automation::Ref<DefinitionDouble>> items;
    std::function<void()> onProperties;

  private:
    automation::Object properties() {
        if (onProperties)
            onProperties();
        return automation::Object(this);
    }
};

/// An object with `GetProperty` and `SetProperty`, which writes down what it is asked. Names in `refused`
/// cannot be written, those in `unreadable` not read.
class PropertiesDouble final : public automation::NativeObject {
  public:
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        using automation::param;
        static const automation::ClassTable table =
            automation::ClassTable::of<PropertiesDouble>(u"Node")
                .method(u"GetProperty", &PropertiesDouble::getProperty, {param(u"name")})
                .method(u"SetProperty", &PropertiesDouble::setProperty, {param(u"name"), param(u"value")});
        return table;
    }
    std::map<std::u16string, automation::Value> values;
    std::set<std::u16string> refused, unreadable;
    std::vector<std::u16string> log;
    std::function<void(const std::u16string&)> onCall;

  private:
    void note(const std::u16string& call) {
        log.push_back(call);
        if (onCall)
            onCall(call);
    }
    automation::Value getProperty(const std::u16string& name) {
        note(u"get " + name);
        if (unreadable.contains(name))
            throw automation::Error(1001, u"Locked", u"Repository");
        return values[name];
    }
    void setProperty(const std::u16string& name, const automation::Value& value) {
        note(u"set " + name);
        if (refused.contains(name))
            throw automation::Error(1002, u"Read-only today", u"Repository");
        values[name] = value;
    }
};

/// An object whose properties are members and nothing else.
class MembersDouble final : public automation::NativeObject {
  public:
    [[nodiscard]] const automation::ClassTable& classTable() const override {
        static const automation::ClassTable table =
            automation::ClassTable::of<MembersDouble>(u"Node").property(u"Age", &MembersDouble::age,
                                                                        &MembersDouble::setAge);
        return table;
    }
    std::int32_t age_ = 40;

  private:
    [[nodiscard]] std::int32_t age() const { return age_; }
    void setAge(std::int32_t age) { age_ = age; }
};

}  // namespace quorel::testing
