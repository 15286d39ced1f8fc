#include "tests/support/diagram_double.h"

#include <initializer_list>

#include "platform/automation/text.h"

namespace quorel::testing {

using automation::ClassTable;
using automation::make;
using automation::Object;
using automation::param;
using automation::Value;

namespace {

[[nodiscard]] std::u16string shown(std::u16string text) {
    for (std::size_t at = 0; (at = text.find(u"\r\n", at)) != std::u16string::npos;)
        text.replace(at, 2, u"|");
    return text;
}

/// "member(a, b)"
[[nodiscard]] std::u16string call(std::u16string_view member, std::initializer_list<Value> arguments) {
    std::u16string text(member);
    text += u'(';
    bool first = true;
    for (const Value& argument : arguments) {
        if (!std::exchange(first, false))
            text += u", ";
        text += shown(argument.toString());
    }
    return text + u')';
}

}  // namespace

const ClassTable& DiagramElementDouble::classTable() const {
    static const ClassTable table =
        ClassTable::of<DiagramElementDouble>(u"Element")
            .method(u"AddProperty", &DiagramElementDouble::addProperty,
                    {param(u"name"), param(u"typeName"), param(u"dataType"), param(u"flag")})
            .method(u"AlignToText", &DiagramElementDouble::alignToText, {param(u"flag")});
    return table;
}

void DiagramElementDouble::addProperty(const std::u16string& name, const std::u16string& typeName,
                                       const Value& dataType, bool flag) {
    script_->step(label_ + call(u".AddProperty", {name, typeName, dataType, flag}));
}

void DiagramElementDouble::alignToText(bool flag) {
    script_->step(label_ + call(u".AlignToText", {flag}));
}

const ClassTable& DiagramDouble::classTable() const {
    static const ClassTable table =
        ClassTable::of<DiagramDouble>(u"Diagram")
            .method(u"Create", &DiagramDouble::create)
            .writeOnly(u"nodePicture", &DiagramDouble::setNodePicture)
            .method(u"LabelFont", &DiagramDouble::labelFont, {param(u"name"), param(u"size")})
            .method(u"SectionFont", &DiagramDouble::sectionFont, {param(u"name"), param(u"size")})
            .method(u"AddStandardButtons", &DiagramDouble::addStandardButtons)
            .method(u"createNode", &DiagramDouble::createNode,
                    {param(u"key"), param(u"text"), param(u"left"), param(u"top"), param(u"width"),
                     param(u"height")})
            .method(u"getNode", &DiagramDouble::getNode, {param(u"key")})
            .method(u"CreateLink", &DiagramDouble::createLink,
                    {param(u"key"), param(u"text"), param(u"source"), param(u"target")})
            .method(u"getLink", &DiagramDouble::getLink, {param(u"key")})
            .method(u"Layout", &DiagramDouble::layout, {param(u"name")})
            .method(u"PopUp", &DiagramDouble::popUp)
            .method(u"Destroy", &DiagramDouble::destroy);
    return table;
}

void DiagramDouble::create() {
    script_->step(u"Create()");
}

void DiagramDouble::setNodePicture(const std::u16string& path) {
    script_->step(u"nodePicture = " + path);
}

void DiagramDouble::labelFont(const std::u16string& name, std::int32_t size) {
    script_->step(call(u"LabelFont", {name, size}));
}

void DiagramDouble::sectionFont(const std::u16string& name, std::int32_t size) {
    script_->step(call(u"SectionFont", {name, size}));
}

void DiagramDouble::addStandardButtons() {
    script_->step(u"AddStandardButtons()");
}

void DiagramDouble::createNode(const std::u16string& key, const std::u16string& text, double left, double top,
                               double width, double height) {
    script_->step(call(u"createNode", {key, text, left, top, width, height}));
}

Object DiagramDouble::getNode(const std::u16string& key) {
    script_->step(call(u"getNode", {key}));
    return make<DiagramElementDouble>(script_, u"[" + shown(key) + u"]");
}

void DiagramDouble::createLink(const std::u16string& key, const std::u16string& text,
                               const std::u16string& source, const std::u16string& target) {
    script_->step(call(u"CreateLink", {key, text, source, target}));
}

Object DiagramDouble::getLink(const std::u16string& key) {
    script_->step(call(u"getLink", {key}));
    return make<DiagramElementDouble>(script_, u"[" + shown(key) + u"]");
}

void DiagramDouble::layout(const std::u16string& name) {
    script_->step(call(u"Layout", {name}));
}

void DiagramDouble::popUp() {
    script_->step(u"PopUp()");
}

void DiagramDouble::destroy() {
    ++count_.destroyed;
    script_->step(u"Destroy()");
}

void offerDiagramDouble(automation::ClassRegistry& classes, const ScriptRef& script, DiagramCount& count) {
    classes.add(u"QuorelDiagramWindow.Diagram", [script, &count] {
        script->step(u"CreateObject");
        return Object(make<DiagramDouble>(script, count));
    });
}

}  // namespace quorel::testing
