#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/ui/keys.h"

namespace quorel::navigator {

/// What the entries of the menu bar do.
enum class MenuCommand : std::uint8_t {
    New,
    Open,
    ImportPackages,
    ImportJsonLines,
    ImportModdle,
    ImportEcore,
    Export,
    Close,
    Exit,
    SixPane,
    Matrix,
    Hierarchy,
    Explorer,
    Refresh,
    Search,
    Properties,
    Diagram,
    LoadBinary,
    StoreBinary,
    Folder,
    Options,
    CloseAll,
    Documentation,
    About
};
inline constexpr std::size_t kMenuCommands = 24;

struct MenuCommandTraits {
    MenuCommand command;
    std::u16string_view menu;  ///< the name of the menu that it is in
    std::u16string_view name, caption;
    ui::KeyChord shortcut{};
    bool beginsGroup = false;  ///< a line is above it
};

/// In the order of `MenuCommand`, which is that of the menus.
inline constexpr std::array<MenuCommandTraits, kMenuCommands> kMenuCommandTraits{{
    {MenuCommand::New, u"mnuFile", u"mnuNew", u"&New\u2026", {ui::key('N'), ui::Modifiers::Control}},
    {MenuCommand::Open, u"mnuFile", u"mnuOpen", u"&Open\u2026", {ui::key('O'), ui::Modifiers::Control}},
    {MenuCommand::ImportPackages, u"mnuImport", u"mnuImportPackages", u"&Package Index\u2026"},
    {MenuCommand::ImportJsonLines, u"mnuImport", u"mnuImportJsonLines", u"&JSON Lines\u2026"},
    {MenuCommand::ImportModdle, u"mnuImport", u"mnuImportModdle", u"&Moddle\u2026"},
    {MenuCommand::ImportEcore, u"mnuImport", u"mnuImportEcore", u"&Ecore\u2026"},
    {MenuCommand::Export, u"mnuFile", u"mnuExport", u"&Export as JSON Lines\u2026"},
    {MenuCommand::Close, u"mnuFile", u"mnuClose", u"&Close", {ui::key('W'), ui::Modifiers::Control}, true},
    {MenuCommand::Exit, u"mnuFile", u"mnuExit", u"E&xit"},
    {MenuCommand::SixPane,
     u"mnuBrowse",
     u"mnuSixPane",
     u"&Six-Pane Browser",
     {ui::key('1'), ui::Modifiers::Control}},
    {MenuCommand::Matrix,
     u"mnuBrowse",
     u"mnuMatrix",
     u"&Matrix Browser",
     {ui::key('2'), ui::Modifiers::Control}},
    {MenuCommand::Hierarchy,
     u"mnuBrowse",
     u"mnuHierarchy",
     u"&Hierarchy Explorer",
     {ui::key('3'), ui::Modifiers::Control}},
    {MenuCommand::Explorer,
     u"mnuBrowse",
     u"mnuExplorer",
     u"&Explorer",
     {ui::key('4'), ui::Modifiers::Control}},
    {MenuCommand::Refresh, u"mnuBrowse", u"mnuRefresh", u"&Refresh", {ui::Key::F5}, true},
    {MenuCommand::Search,
     u"mnuTools",
     u"mnuSearch",
     u"Search &Everywhere\u2026",
     {ui::key('K'), ui::Modifiers::Control}},
    {MenuCommand::Properties,
     u"mnuTools",
     u"mnuProperties",
     u"&Properties\u2026",
     {ui::Key::Enter, ui::Modifiers::Alt},
     true},
    {MenuCommand::Diagram,
     u"mnuTools",
     u"mnuDiagram",
     u"&Metamodel Diagram",
     {ui::key('D'), ui::Modifiers::Control}},
    {MenuCommand::LoadBinary, u"mnuTools", u"mnuLoadBinary", u"&Load a Binary Property\u2026", {}, true},
    {MenuCommand::StoreBinary, u"mnuTools", u"mnuStoreBinary", u"&Store a Binary Property\u2026"},
    {MenuCommand::Folder, u"mnuTools", u"mnuFolder", u"Repositories in a &Folder\u2026", {}, true},
    {MenuCommand::Options, u"mnuTools", u"mnuOptions", u"&Options\u2026", {}, true},
    {MenuCommand::CloseAll, u"mnuWindow", u"mnuCloseAll", u"Close &All"},
    {MenuCommand::Documentation, u"mnuHelp", u"mnuDocumentation", u"&Documentation", {ui::Key::F1}},
    {MenuCommand::About, u"mnuHelp", u"mnuAbout", u"&About\u2026"},
}};

[[nodiscard]] constexpr std::size_t indexOf(MenuCommand command) noexcept {
    return static_cast<std::size_t>(command);
}

}  // namespace quorel::navigator
