// Files that the user drops on a form.

#include "tests/conformance/window.h"

namespace quorel::conformance {

using ui::Modality;
using Files = std::vector<std::u16string>;

namespace {

std::vector<Files>& listen(Window& window, std::vector<Files>& seen) {
    window.form->onDropFiles.connect([&](const Files& files) { seen.push_back(files); });
    return seen;
}

}  // namespace

TEST_F(Conformance, DroppedFilesArriveTogetherByTheirPathsInTheirOrder) {
    Window window(backend->desktop());
    std::vector<Files> seen;
    listen(window, seen);
    window.form->show(Modality::Modeless);
    const std::u16string deep = u"C:\\" + std::u16string(400, u'd') + u"\\ünïcode \u4E2D.quorel";
    backend->drop(*window.form, {u"C:\\b.quorel", deep, u"C:\\a"});
    backend->drop(*window.form, {u"D:\\only.jsonl"});
    EXPECT_EQ(seen, (std::vector<Files>{{u"C:\\b.quorel", deep, u"C:\\a"}, {u"D:\\only.jsonl"}}));
}

TEST_F(Conformance, AFormThatNobodyListensToTakesNoFiles) {
    Window window(backend->desktop());
    window.form->show(Modality::Modeless);
    EXPECT_THROW(backend->drop(*window.form, {u"C:\\a.quorel"}), std::runtime_error);
}

TEST_F(Conformance, AFormBehindAModalOneTakesNoFiles) {
    Window window(backend->desktop());
    Window modal(backend->desktop());
    std::vector<Files> seen;
    listen(window, seen);
    window.form->show(Modality::Modeless);
    backend->duringModal([&](ui::Form& form) {
        EXPECT_THROW(backend->drop(*window.form, {u"C:\\a.quorel"}), std::runtime_error);
        form.hide();
    });
    modal.form->show(Modality::Modal);
    EXPECT_EQ(seen, std::vector<Files>{});
}

TEST_F(Conformance, DroppedFilesMayCloseTheForm) {
    Window window(backend->desktop());
    window.form->onDropFiles.connect([&](const Files&) { window.form->unload(); });
    window.form->show(Modality::Modeless);
    backend->drop(*window.form, {u"C:\\a.quorel"});
    EXPECT_FALSE(window.form->isLoaded());
}

TEST_F(Conformance, AFormTakesFilesAgainAfterItWasUnloaded) {
    Window window(backend->desktop());
    std::vector<Files> seen;
    listen(window, seen);
    window.form->show(Modality::Modeless);
    window.form->unload();
    window.form->show(Modality::Modeless);
    backend->drop(*window.form, {u"C:\\a.quorel"});
    EXPECT_EQ(seen.size(), 1U);
}

}  // namespace quorel::conformance
