#pragma once

namespace quorel::ui {

class Button;
class CheckBox;
class ComboBox;
class Form;
class Label;
class Panel;
class PictureBox;
class ProgressBar;
class Splitter;
class StatusBar;
class TextBox;
class VirtualList;

/// One member per plain kind of control; backends implement it to make peers.
class ControlVisitor {
  public:
    virtual void visit(Form& form) = 0;
    virtual void visit(Panel& panel) = 0;
    virtual void visit(Label& label) = 0;
    virtual void visit(TextBox& box) = 0;
    virtual void visit(Button& button) = 0;
    virtual void visit(CheckBox& box) = 0;
    virtual void visit(ComboBox& box) = 0;
    virtual void visit(ProgressBar& bar) = 0;
    virtual void visit(PictureBox& box) = 0;
    virtual void visit(VirtualList& list) = 0;
    virtual void visit(StatusBar& bar) = 0;
    virtual void visit(Splitter& splitter) = 0;

  protected:
    ~ControlVisitor() = default;
};

}  // namespace quorel::ui
