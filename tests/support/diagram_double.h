#pragma once

#include <string>

#include "platform/automation/class_registry.h"
#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"
#include "tests/support/repository_double.h"

namespace quorel::testing {

/// How many diagram components were made, and how many of them were told to end.
struct DiagramCount {
    int made = 0, destroyed = 0;
};

/// A box or a connection of a diagram component that only writes down what is called.
class DiagramElementDouble final : public automation::NativeObject {
  public:
    DiagramElementDouble(ScriptRef script, std::u16string label)
        : script_(std::move(script)), label_(std::move(label)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;

  private:
    void addProperty(const std::u16string& name, const std::u16string& typeName,
                     const automation::Value& dataType, bool flag);
    void alignToText(bool flag);

    ScriptRef script_;
    std::u16string label_;
};

/// A diagram component that writes down every call with its arguments, line breaks as "|".
class DiagramDouble final : public automation::NativeObject {
  public:
    DiagramDouble(ScriptRef script, DiagramCount& count) : script_(std::move(script)), count_(count) {
        ++count_.made;
    }
    [[nodiscard]] const automation::ClassTable& classTable() const override;

  private:
    void create();
    void setNodePicture(const std::u16string& path);
    void labelFont(const std::u16string& name, std::int32_t size);
    void sectionFont(const std::u16string& name, std::int32_t size);
    void addStandardButtons();
    void createNode(const std::u16string& key, const std::u16string& text, double left, double top,
                    double width, double height);
    automation::Object getNode(const std::u16string& key);
    void createLink(const std::u16string& key, const std::u16string& text, const std::u16string& source,
                    const std::u16string& target);
    automation::Object getLink(const std::u16string& key);
    void layout(const std::u16string& name);
    void popUp();
    void destroy();

    ScriptRef script_;
    DiagramCount& count_;
};

/// Lets the diagram component of those classes be the double.
void offerDiagramDouble(automation::ClassRegistry& classes, const ScriptRef& script, DiagramCount& count);

}  // namespace quorel::testing
