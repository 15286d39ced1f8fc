// What it costs a host to add an item to the selection dialog, beside a call with the same arguments that
// does nothing, and what an item takes of memory.

#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "dialogs/select_item.h"
#include "platform/automation/calls.h"
#include "platform/automation/text.h"
#include "platform/headless/headless_desktop.h"
#include "platform/shell/memory_settings_store.h"
#include "platform/shell/system_clock.h"
#include "ratio.h"

namespace {

using quorel::automation::ClassTable;
using quorel::automation::make;
using quorel::automation::Object;
using quorel::automation::param;

constexpr std::int32_t kItems = 100'000;

/// Takes what the dialog takes and forgets it.
class Bare final : public quorel::automation::NativeObject {
  public:
    [[nodiscard]] const ClassTable& classTable() const override {
        static const ClassTable table = ClassTable::of<Bare>(u"Bare").method(
            u"AddItem", &Bare::AddItem,
            {param(u"str"), param(u"ob"), param(u"prop1", u""), param(u"prop2", u""), param(u"prop3", u""),
             param(u"prop4", u""), param(u"prop5", u""), param(u"prop6", u""), param(u"prop7", u"")});
        return table;
    }
    void AddItem(const std::u16string&, const Object&, const std::u16string&, const std::u16string&,
                 const std::u16string&, const std::u16string&, const std::u16string&, const std::u16string&,
                 const std::u16string&) {
        ++calls_;
    }

  private:
    std::int32_t calls_ = 0;
};

std::vector<std::u16string> textsOfItems() {
    std::vector<std::u16string> texts;
    for (std::int32_t i = 0; i < kItems; ++i)
        texts.push_back(u"Item number " + quorel::automation::decimal(i));
    return texts;
}

[[nodiscard]] std::size_t bytesInUse() {
#ifdef __linux__
    return mallinfo2().uordblks;
#else
    return 0;
#endif
}

}  // namespace

int main() {
    quorel::headless::HeadlessDesktop desktop;
    quorel::automation::ClassRegistry classes;
    quorel::shell::SystemClock clock;
    quorel::shell::MemorySettingsStore settings;
    const quorel::frame::Environment environment{desktop, classes, clock, settings};
    const Object dialog = make<quorel::dialogs::SelectItem>(environment);
    const Object bare = make<Bare>();
    const Object behind = make<Bare>();
    const auto texts = textsOfItems();
    const auto fill = [&](bool columns, bool listView) {
        return [&, columns, listView] {
            dialog.call(u"Create");
            if (listView)
                dialog.call(u"AsListView", true);
            for (const std::u16string& text : texts)
                if (columns)
                    dialog.call(u"AddItem", text, behind, u"a column", u"another");
                else
                    dialog.call(u"AddItem", text, behind);
        };
    };
    const auto callBare = [&](bool columns) {
        return [&, columns] {
            for (const std::u16string& text : texts)
                if (columns)
                    bare.call(u"AddItem", text, behind, u"a column", u"another");
                else
                    bare.call(u"AddItem", text, behind);
        };
    };
    quorel::bench::compare("AddItem to the list / bare call", kItems, 3, fill(false, false), callBare(false));
    quorel::bench::compare("AddItem with columns and boxes / bare call", kItems, 3, fill(true, true),
                           callBare(true));
    for (const std::int32_t items : {1'000, 10'000, 100'000}) {
        dialog.call(u"Create");
        const std::size_t before = bytesInUse();
        for (std::int32_t i = 0; i < items; ++i)
            dialog.call(u"AddItem", texts[static_cast<std::size_t>(i)], behind);
        std::printf("%7d items: %.1f bytes an item\n", items,
                    static_cast<double>(bytesInUse() - before) / items);
    }
    dialog.call(u"Destroy");
}
