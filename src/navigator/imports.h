#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "platform/automation/class_registry.h"
#include "repository/import/exchange.h"

namespace quorel::navigator {

/// How files of one kind are asked for.
struct ImportTraits {
    repository::ImportKind kind;
    std::u16string_view title;
    std::u16string_view filter;  ///< as file dialogs want it
};

/// In the order of the menu.
inline constexpr std::array<ImportTraits, 4> kImports{{
    {repository::ImportKind::PackageIndex, u"Import a package index", u""},
    {repository::ImportKind::JsonLines, u"Import JSON Lines", u"JSON Lines (*.jsonl)|*.jsonl"},
    {repository::ImportKind::Moddle, u"Import a moddle descriptor", u"Moddle descriptors (*.json)|*.json"},
    {repository::ImportKind::Ecore, u"Import an Ecore model", u"Ecore models (*.ecore)|*.ecore"},
}};

/// A window that shows how far a run is; it is destroyed with this. Bytes and elements are shown as
/// thousandths.
class RunProgress {
  public:
    /// `what` stands above the bar.
    RunProgress(const automation::ClassRegistry& classes, std::u16string_view caption,
                const std::u16string& what);
    RunProgress(const RunProgress&) = delete;
    RunProgress& operator=(const RunProgress&) = delete;
    ~RunProgress();
    void show(const repository::Progress& progress);

  private:
    automation::Object window_;
    std::int32_t shown_ = 0;
};

/// What the user is told at the end: what was taken, what was renamed and what was not taken.
[[nodiscard]] std::u16string importSummary(const repository::ImportReport& report);
[[nodiscard]] std::u16string exportSummary(const repository::ExportReport& report,
                                           const std::u16string& output);

}  // namespace quorel::navigator
