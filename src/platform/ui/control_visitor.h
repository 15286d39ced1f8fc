#pragma once

namespace quorel::ui {

class Button;
class CheckBox;
class ComboBox;
class DrawingArea;
class Form;
class Label;
class Line;
class Panel;
class PictureBox;
class ProgressBar;
class ScrollPanel;
class Splitter;
class StatusBar;
class TabStrip;
class TextBox;
class Tree;
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
    virtual void visit(Line& line) = 0;
    virtual void visit(ScrollPanel& panel) = 0;
    virtual void visit(TabStrip& strip) = 0;
    virtual void visit(Tree& tree) = 0;
    virtual void visit(DrawingArea& area) = 0;

  protected:
    ~ControlVisitor() = default;
};

}  // namespace quorel::ui
