#pragma once

#include <oaidl.h>
#include <windows.h>

#include <string>
#include <vector>

#include "platform/automation/value.h"

namespace quorel::server::testing {

/// One accessor or method as a type library describes it.
struct ListedParameter {
    std::string name;
    std::string type;       // e.g. "BSTR*"
    std::string direction;  // "in", "in,out"
    bool optional = false;
    std::string defaultValue;  // as text, with quotes around strings; empty when there is none
};

struct ListedMember {
    MEMBERID id = 0;
    std::string name;
    std::string kind;  // "method", "get", "put", "putref"
    std::vector<ListedParameter> parameters;
    std::string result;  // "void" when there is none
    std::string help;
};

/// The members of a dispatch interface in the order of the library, without those that every one has.
[[nodiscard]] std::vector<ListedMember> membersOf(ITypeInfo& info);

/// A default value as the listing shows it.
[[nodiscard]] std::string defaultText(const automation::Value& value);

/// The whole library as stable lines, in the order of the library.
[[nodiscard]] std::vector<std::string> listingOf(ITypeLib& library);

}  // namespace quorel::server::testing
