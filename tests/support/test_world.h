#pragma once

#include "frame/environment.h"
#include "platform/automation/error.h"
#include "platform/headless/drawing_export.h"
#include "platform/headless/folder_browser.h"
#include "platform/headless/headless_desktop.h"
#include "platform/headless/picture_objects.h"
#include "platform/headless/user.h"
#include "platform/shell/memory_settings_store.h"

namespace quorel::testing {

/// A clock that stands still until it is set.
class ManualClock final : public shell::Clock {
  public:
    std::int64_t now = 0;
    shell::LocalTime fields{2002, 3, 3, 14, 5, 9};
    double timer = 50709.5;
    int calendarReadings = 0;

    [[nodiscard]] std::int64_t seconds() override { return now; }
    [[nodiscard]] shell::LocalTime localTime(std::int64_t) override {
        ++calendarReadings;
        return fields;
    }
    [[nodiscard]] double secondsSinceMidnight() override { return timer; }
};

/// Cannot be read or written.
class BrokenSettings final : public shell::SettingsStore {
  public:
    std::optional<std::u16string> read(std::u16string_view, std::u16string_view,
                                       std::u16string_view) override {
        throw automation::Error(75);
    }
    void write(std::u16string_view, std::u16string_view, std::u16string_view, std::u16string_view) override {
        throw automation::Error(75);
    }
};

/// Everything the public classes need, without a screen.
struct TestWorld {
    headless::HeadlessDesktop desktop;
    automation::ClassRegistry classes;
    ManualClock clock;
    shell::MemorySettingsStore settings;
    headless::PictureObjects pictureObjects;
    headless::FolderBrowser folderBrowser{desktop};
    headless::DrawingExport drawingExport;
    frame::Environment environment{desktop, classes,         clock,          settings, nullptr,
                                   nullptr, &pictureObjects, &folderBrowser, {},       &drawingExport};
    headless::User user{desktop};

    /// The texts of all message boxes so far.
    [[nodiscard]] std::vector<std::u16string> boxes() const {
        std::vector<std::u16string> texts;
        for (const ui::Message& message : desktop.messages())
            texts.push_back(message.text);
        return texts;
    }
    void expectBox() { desktop.expectMessage({}); }
};

/// What `body` raises; 0 if nothing.
template <class Body>
[[nodiscard]] std::int32_t errorNumber(Body&& body) {
    try {
        body();
    } catch (const automation::Error& error) {
        return error.number();
    }
    return 0;
}

}  // namespace quorel::testing
