#include <string>
#include <vector>

#include "hosts/import/run.h"
#include "platform/automation/text.h"

#ifdef _WIN32
#include "hosts/library_search.h"

int wmain(int count, wchar_t** words) {
    quorel::hosts::lookForLibrariesAtHome();
    std::vector<std::u16string> arguments;
    for (int i = 1; i < count; ++i)
        arguments.emplace_back(reinterpret_cast<const char16_t*>(words[i]));
    return quorel::hosts::runImport(arguments);
}
#else
int main(int count, char** words) {
    std::vector<std::u16string> arguments;
    for (int i = 1; i < count; ++i)
        arguments.push_back(quorel::automation::fromUtf8(words[i]));
    return quorel::hosts::runImport(arguments);
}
#endif
