#include "platform/automation/error.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

#include "platform/automation/text.h"

namespace quorel::automation {

namespace {

struct Description {
    std::int32_t number;
    std::u16string_view text;
};

constexpr std::array kDescriptions{
    Description{5, u"Invalid procedure call or argument"},
    Description{6, u"Overflow"},
    Description{7, u"Out of memory"},
    Description{9, u"Subscript out of range"},
    Description{10, u"This array is fixed or temporarily locked"},
    Description{11, u"Division by zero"},
    Description{13, u"Type mismatch"},
    Description{28, u"Out of stack space"},
    Description{51, u"Internal error"},
    Description{52, u"Bad file name or number"},
    Description{53, u"File not found"},
    Description{57, u"Device I/O error"},
    Description{58, u"File already exists"},
    Description{61, u"Disk full"},
    Description{70, u"Permission denied"},
    Description{75, u"Path/File access error"},
    Description{76, u"Path not found"},
    Description{91, u"Object variable or With block variable not set"},
    Description{94, u"Invalid use of Null"},
    Description{400, u"Form already displayed; can't show modally"},
    Description{424, u"Object required"},
    Description{429, u"ActiveX component can't create object"},
    Description{438, u"Object doesn't support this property or method"},
    Description{440, u"Automation error"},
    Description{445, u"Object doesn't support this action"},
    Description{448, u"Named argument not found"},
    Description{449, u"Argument not optional"},
    Description{450, u"Wrong number of arguments or invalid property assignment"},
    Description{451, u"Object not a collection"},
    Description{457, u"This key is already associated with an element of this collection"},
};

}  // namespace

std::u16string_view standardDescription(std::int32_t number) noexcept {
    const auto* const found = std::find_if(kDescriptions.begin(), kDescriptions.end(),
                                           [number](const Description& d) { return d.number == number; });
    return found != kDescriptions.end() ? found->text : u"Application-defined or object-defined error";
}

Error::Error(std::int32_t number, std::u16string description, std::u16string source)
    : number_(number),
      description_(std::move(description)),
      source_(std::move(source)),
      what_(toUtf8(description_)) {}

Error::Error(std::int32_t number) : Error(number, std::u16string(standardDescription(number))) {}

Error currentError() {
    try {
        throw;
    } catch (const Error& error) {
        return error;
    } catch (const std::bad_alloc&) {
        return Error(error_number::kOutOfMemory);
    } catch (const std::exception& error) {
        return Error(error_number::kInternal, fromUtf8(error.what()));
    } catch (...) {
        return Error(error_number::kInternal);
    }
}

}  // namespace quorel::automation
