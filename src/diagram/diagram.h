#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

#include "diagram/diagram_element.h"
#include "diagram/diagram_sizes.h"
#include "diagram/frm_diagram.h"
#include "frame/environment.h"
#include "frame/form_holder.h"
#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"

namespace quorel::diagram {

/// The class "QuorelDiagramWindow.Diagram": boxes and connections that a host describes, shown in a window.
/// Every member but `Create` and `Destroy` is error 91 before `Create` and after `Destroy`.
///
/// Lengths are twips. Keys are compared to the letter; of several boxes or connections of one key all are
/// drawn, and the newest is the one meant by it. A key that nothing bears is error 9.
class Diagram final : public automation::NativeObject {
  public:
    explicit Diagram(const frame::Environment& environment) : environment_(environment) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    /// An empty diagram and its window, in place of those that were there.
    void Create();
    /// Closes the window and drops the diagram. Harmless when repeated.
    void Destroy();

    /// The picture in the header of every box, from a file that `Desktop::loadPicture` reads; "" for none.
    void setNodePicture(const std::u16string& path);
    /// Of the names of boxes and connections. `points` from 1 to 400, else error 5.
    void LabelFont(const std::u16string& name, std::int32_t points);
    /// Of the properties.
    void SectionFont(const std::u16string& name, std::int32_t points);
    /// The window gets its buttons: to zoom, find, print and save.
    void AddStandardButtons();

    /// `text`: lines parted by CR LF, the last one the name, those before, and "<<x>>" anywhere at the
    /// beginning of a line, stereotypes. `left` and `top` matter when the diagram is shown without a layout.
    /// A size below zero is error 5, a length beyond 100,000,000 error 6.
    void createNode(const std::u16string& key, const std::u16string& text, double left, double top,
                    double width, double height);
    [[nodiscard]] automation::Object getNode(const std::u16string& key) const;
    /// `source` and `target` are keys of boxes.
    void CreateLink(const std::u16string& key, const std::u16string& text, const std::u16string& source,
                    const std::u16string& target);
    [[nodiscard]] automation::Object getLink(const std::u16string& key) const;

    /// "%HIERARCHY%" in any case: in ranks from top to bottom. Any other name is error 5.
    void Layout(const std::u16string& name);
    /// Shows the window until the user closes it. What was not arranged is before: in ranks, or, where the
    /// host placed boxes, by straight connections.
    void PopUp();

    /// For programs of this house: arranges what is not arranged, without a window, and writes the drawing
    /// into a file as `saveDiagram` does. Not published to hosts.
    [[nodiscard]] std::u16string save(const std::u16string& path);

  private:
    [[nodiscard]] DiagramContent& content() const;
    [[nodiscard]] std::size_t boxOf(const std::u16string& key, const std::u16string& connection) const;
    [[nodiscard]] Measure measure() const;
    void arrange();

    frame::Environment environment_;
    std::shared_ptr<DiagramContent> content_;
    frame::FormHolder<frmDiagram> holder_;
};

}  // namespace quorel::diagram
