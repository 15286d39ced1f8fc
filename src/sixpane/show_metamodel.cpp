#include "sixpane/show_metamodel.h"

#include <algorithm>
#include <array>
#include <string>
#include <utility>

#include "frame/attempt.h"
#include "frame/guarded.h"
#include "frame/report_error.h"
#include "frame/standard.h"
#include "platform/automation/calls.h"

namespace quorel::sixpane {

using automation::each;
using automation::Object;
using automation::Value;

namespace {

constexpr std::u16string_view kComponent = u"QuorelDiagramWindow.Diagram";
constexpr std::u16string_view kPicture = u"\\ReposHeader.wmf";
constexpr std::u16string_view kFont = u"Courier New";
constexpr std::int32_t kLabelPoints = 15, kSectionPoints = 10;
constexpr std::int32_t kBoxWidth = 3000, kBoxHeight = 1500;
/// The meta level's own classes, which are not drawn.
constexpr std::array<std::u16string_view, 3> kMetaLevel{u"MetaNode", u"MetaLink", u"MetaProperty"};

/// The diagram component, which is destroyed once whatever happens.
class Component {
  public:
    explicit Component(Object object) : object_(std::move(object)) {}
    Component(const Component&) = delete;
    Component& operator=(const Component&) = delete;
    ~Component() {
        if (object_)
            frame::attempt([this] { destroy(); });
    }
    [[nodiscard]] const Object& object() const noexcept { return object_; }
    void destroy() { std::exchange(object_, Object()).call(u"Destroy"); }

  private:
    Object object_;
};

[[nodiscard]] std::u16string boxKey(std::u16string_view name) {
    std::u16string key(u"<<MetaClass>> ");
    return key.append(frame::NewLine()).append(name);
}

[[nodiscard]] std::u16string connectionKey(std::u16string_view name) {
    return std::u16string(u"<<MetaAssoc>> ").append(name);
}

[[nodiscard]] std::u16string nameOf(const Object& object) {
    return object.get(u"name").toString();
}

void addProperty(const Object& element, const Object& property) {
    const Value name = property.get(u"name");
    element.call(u"AddProperty", name, u"String", property.get(u"datatype"), true);
}

void drawMetaNode(const Object& diagram, const Object& metaNode) {
    const std::u16string name = nameOf(metaNode);
    if (std::find(kMetaLevel.begin(), kMetaLevel.end(), name) != kMetaLevel.end())
        return;
    const std::u16string key = boxKey(name);
    diagram.call(u"createNode", key, key, 0, 0, kBoxWidth, kBoxHeight);
    const Object box = diagram.call(u"getNode", key).toObject();
    for (const Object& property : each(metaNode.get(u"Properties").toObject()))
        addProperty(box, property);
    box.call(u"AlignToText", true);
}

void drawMetaLink(const Object& diagram, const Object& metaLink) {
    const std::u16string key = connectionKey(nameOf(metaLink));
    const std::u16string source = boxKey(metaLink.get(u"sourcename").toString());
    const std::u16string target = boxKey(metaLink.get(u"targetname").toString());
    diagram.call(u"CreateLink", key, key, source, target);
    const Object connection = diagram.call(u"getLink", key).toObject();
    // Aligned after each property, so never without one.
    for (const Object& property : each(metaLink.get(u"Properties").toObject())) {
        addProperty(connection, property);
        connection.call(u"AlignToText", true);
    }
}

}  // namespace

void describeMetamodel(const Object& diagram, const Object& repository, std::u16string_view libraryFolder) {
    diagram.call(u"Create");
    diagram.put(u"nodePicture", std::u16string(libraryFolder).append(kPicture));
    diagram.call(u"LabelFont", kFont, kLabelPoints);
    diagram.call(u"SectionFont", kFont, kSectionPoints);
    diagram.call(u"AddStandardButtons");
    for (const Object& metaNode : each(repository.get(u"MetaNodes").toObject()))
        drawMetaNode(diagram, metaNode);
    for (const Object& metaLink : each(repository.get(u"MetaLinks").toObject()))
        drawMetaLink(diagram, metaLink);
}

const automation::ClassTable& ShowMetamodel::classTable() const {
    static const automation::ClassTable table =
        automation::ClassTable::of<ShowMetamodel>(u"ShowMetamodel")
            .method(u"Show", &ShowMetamodel::Show, {automation::param(u"repository")});
    return table;
}

Value ShowMetamodel::Show(const Object& repository) {
    const automation::Ref<ShowMetamodel> alive(this);
    try {
        draw(repository);
        return {};
    } catch (...) {
        return frame::ReportError(environment_.desktop, frame::caughtError(), u"ShowMetamodel", u"Show");
    }
}

void ShowMetamodel::draw(const Object& repository) const {
    Component component(environment_.classes.createObject(kComponent));
    const Object diagram = component.object();
    describeMetamodel(diagram, repository, environment_.libraryFolder);
    diagram.call(u"Layout", u"%HIERARCHY%");
    diagram.call(u"PopUp");
    component.destroy();
}

}  // namespace quorel::sixpane
