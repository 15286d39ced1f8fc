#pragma once

#include <array>

namespace quorel::settings {

/// One line of the options window's file-type table. The texts are shown as they stand.
struct FileTypeRow {
    const char16_t* key;
    const char16_t* extension;
    const char16_t* filter;
};

inline constexpr std::array kFileTypeRows{
    FileTypeRow{u"TXT", u".txt", u"Textfile (*.txt)|*.txt"},
    FileTypeRow{u"DIM", u".dim", u"Visualizer import file (*.dim)|*.dim"},
    FileTypeRow{u"DGT", u".dgt", u"Visualizer diagram file (*.dgt)|*.dgt"},
    FileTypeRow{u"PL", u".pl", u"Prolog script(*.pl)|*.pl"},
    FileTypeRow{u"SPEC", u".spec", u"Source Browser specification (*.spec)|*.spec"},
    FileTypeRow{u"TOK", u".tok", u"Source Browser token file (*.tok)|*.tok"},
    FileTypeRow{u"MDW", u".mdw", u"Workgroupg file (*.mdw)|*.mdw"},
    FileTypeRow{u"EXE", u".exe", u"Executable files (*.exe)|*.exe"},
    FileTypeRow{u"BAS", u".bas", u"Basic script (*.bas)|*.bas"},
    FileTypeRow{u"CLS", u".cls", u"Basic class (*.cls)|*.cls"},
    FileTypeRow{u"CPP", u".cpp", u"C++ implemention file (*.cpp)|*.cpp"},
    FileTypeRow{u"H", u".h", u"C++ header file (*.h)|*.h"},
    FileTypeRow{u"RTF", u".rtf", u"rich text format (*.rtf)|*.rtf"},
    FileTypeRow{u"CSV", u".csv", u"comma separated value (*.csv)|*.csv"},
    FileTypeRow{u"TML", u".tml", u"Quorel template (*.tml)|*.tml"},
    FileTypeRow{u"BAT", u".bat", u"shell script (*.bat)|*.bat"},
    FileTypeRow{u"MDB", u".mdb", u"Microsoft Access database (*.mdb)|*.mdb"},
    FileTypeRow{u"HTML", u".html", u"Hypertext document (*.html)|*.html"},
    FileTypeRow{u"JAVA", u".java", u"Java Source Code (*.java)|*.java"},
    FileTypeRow{u"CLASS", u".class", u"Java Compiled Code (*.class)|*.class"}};

}  // namespace quorel::settings
