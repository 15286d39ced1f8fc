#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "platform/controls/file_selector.h"
#include "platform/ui/check_box.h"
#include "platform/ui/scroll_panel.h"
#include "platform/ui/tab_strip.h"
#include "settings/options.h"
#include "tests/settings/settings_fixture.h"

namespace quorel::settings {

/// An options dialog over the settings that a test declares.
struct OptionsTest : ::testing::Test {
    testing::TestWorld world;
    StoreDouble store{world.settings};
    frame::Environment environment{world.desktop, world.classes, world.clock, store};
    SettingsModel model;
    Ref<Options> options;

    OptionsTest() {
        controls::registerFileClasses(world.classes, nullptr);
        options = make<Options>(environment);
    }
    ~OptionsTest() override {
        if (options)
            options->Destroy();
        world.desktop.verify();
    }
    void create() {
        options->Create();
        options->Init(model.information, u"Navigator", u"Browser");
    }
    void declare(const std::u16string& spec, std::u16string value, const std::u16string& type,
                 const std::u16string& category, const std::u16string& description = {}) {
        options->Settings().call(u"initSetting", spec, value, type, category, description);
    }
    /// One setting of every edit type, on two tabs.
    void declareSome() {
        create();
        declare(u"Name", u"Anna", u"Text", u"Person", u"Who it is");
        declare(u"Tool", u"edit.exe", u"File:EXE", u"Paths", u"The editor");
        declare(u"Models", u"/models", u"directory", u"Paths");
        declare(u"Quiet", u"1", u"Boolean", u"Person", u"Be &quiet");
        declare(u"Version", u"1.2", u"show", u"Person", u"The version");
        declare(u"Secret", u"x", u"Text", u"none");
    }
    void popUp(const std::function<void(frmOptions&)>& user) {
        world.desktop.expectModal(u"frmOptions",
                                  [&](ui::Form& form) { user(dynamic_cast<frmOptions&>(form)); });
        options->PopUp();
        world.desktop.verify();
    }
    /// Opens it, lets the user act, and closes it by Cancel if nothing else has.
    void look(const std::function<void(frmOptions&)>& user) {
        popUp([&](frmOptions& form) {
            user(form);
            if (form.isVisible())
                world.user.click(form, u"cmdCancel");
        });
    }
    template <class T>
    [[nodiscard]] static T& get(ui::Form& form, std::u16string_view name) {
        return headless::get<T>(form, name);
    }
    [[nodiscard]] static ui::TextBox& box(ui::Form& form, std::u16string_view name) {
        return get<ui::TextBox>(form, name);
    }
    [[nodiscard]] std::u16string stored(const std::u16string& key) {
        return world.settings.read(u"Browser", u"Navigator", key).value_or(u"(none)");
    }
    /// The page that is seen.
    [[nodiscard]] static std::size_t seenPage(ui::Form& form) {
        std::size_t seen = 99;
        for (std::size_t i = 0;; ++i) {
            const auto* const page =
                form.find(u"picOptions(" + automation::decimal(static_cast<std::int64_t>(i)) + u")");
            if (page == nullptr)
                return seen;
            EXPECT_EQ(page->isVisible(),
                      page->parent()->bounds().left + page->bounds().left == ui::Twips{210});
            EXPECT_TRUE(page->isVisible() || page->bounds().left == ui::Twips{-20'000});
            if (page->isVisible()) {
                EXPECT_EQ(seen, 99U) << "one page alone is seen";
                seen = i;
            }
        }
    }
};

}  // namespace quorel::settings
