#include "tests/server/contract_listing.h"

#include <gtest/gtest.h>

#include "platform/automation/text.h"
#include "platform/win32/com/bridge.h"
#include "platform/win32/com/com_ptr.h"

namespace quorel::server::testing {

namespace {

using win32::Bstr;
using win32::ComPtr;

/// The platform's ids of IUnknown's and IDispatch's own functions begin here.
constexpr MEMBERID kInherited = 0x60000000;

std::string narrow(BSTR text) {
    return automation::toUtf8(win32::viewOf(text));
}

std::string textOf(const GUID& guid) {
    wchar_t text[40];
    ::StringFromGUID2(guid, text, 40);
    return automation::toUtf8(win32::narrowView(text));
}

std::string typeText(ITypeInfo& info, const TYPEDESC& type) {
    switch (type.vt) {
        case VT_PTR:
            return typeText(info, *type.lptdesc) + "*";
        case VT_BSTR:
            return "BSTR";
        case VT_BOOL:
            return "VARIANT_BOOL";
        case VT_I4:
            return "long";
        case VT_VARIANT:
            return "VARIANT";
        case VT_DISPATCH:
            return "IDispatch*";
        case VT_VOID:
        case VT_HRESULT:
            return "void";
        case VT_USERDEFINED: {
            ComPtr<ITypeInfo> named;
            Bstr name;
            EXPECT_EQ(info.GetRefTypeInfo(type.hreftype, named.out()), S_OK);
            EXPECT_EQ(named->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr), S_OK);
            return narrow(name.get());
        }
        default:
            return "type " + std::to_string(type.vt);
    }
}

std::string kindText(INVOKEKIND kind) {
    switch (kind) {
        case INVOKE_FUNC:
            return "method";
        case INVOKE_PROPERTYGET:
            return "get";
        case INVOKE_PROPERTYPUT:
            return "put";
        default:
            return "putref";
    }
}

ListedParameter parameterOf(ITypeInfo& info, const ELEMDESC& element, BSTR name) {
    const USHORT flags = element.paramdesc.wParamFlags;
    ListedParameter result;
    result.name = narrow(name);
    result.type = typeText(info, element.tdesc);
    result.direction = (flags & PARAMFLAG_FOUT) != 0 ? "in,out" : "in";
    EXPECT_NE(flags & PARAMFLAG_FIN, 0) << result.name;
    result.optional = (flags & PARAMFLAG_FOPT) != 0;
    if ((flags & PARAMFLAG_FHASDEFAULT) != 0)
        result.defaultValue =
            defaultText(win32::fromVariant(element.paramdesc.pparamdescex->varDefaultValue));
    return result;
}

ListedMember memberOf(ITypeInfo& info, const FUNCDESC& function) {
    ListedMember result;
    result.id = function.memid;
    result.kind = kindText(function.invkind);
    result.result = typeText(info, function.elemdescFunc.tdesc);
    std::vector<BSTR> names(static_cast<std::size_t>(function.cParams) + 1, nullptr);
    UINT count = 0;
    EXPECT_EQ(info.GetNames(function.memid, names.data(), static_cast<UINT>(names.size()), &count), S_OK);
    result.name = narrow(names[0]);
    for (SHORT i = 0; i < function.cParams; ++i)
        result.parameters.push_back(
            parameterOf(info, function.lprgelemdescParam[i], names[static_cast<std::size_t>(i) + 1]));
    for (const BSTR name : names)
        ::SysFreeString(name);
    Bstr help;
    EXPECT_EQ(info.GetDocumentation(function.memid, nullptr, help.out(), nullptr, nullptr), S_OK);
    result.help = narrow(help.get());
    return result;
}

std::string lineOf(const ListedMember& member) {
    std::string line = "  " + std::to_string(member.id) + " " + member.kind + " " + member.name + "(";
    for (const ListedParameter& parameter : member.parameters) {
        if (&parameter != &member.parameters.front())
            line += ", ";
        line += parameter.direction + " " + parameter.type + " " + parameter.name;
        if (parameter.optional)
            line += " = " + parameter.defaultValue;
    }
    return line + ") " + member.result + " \"" + member.help + "\"";
}

void listEnumeration(ITypeInfo& info, const TYPEATTR& attributes, std::vector<std::string>& lines) {
    for (UINT i = 0; i < attributes.cVars; ++i) {
        VARDESC* variable = nullptr;
        ASSERT_EQ(info.GetVarDesc(i, &variable), S_OK);
        Bstr name;
        info.GetDocumentation(variable->memid, name.out(), nullptr, nullptr, nullptr);
        lines.push_back("  " + narrow(name.get()) + " = " +
                        automation::toUtf8(win32::fromVariant(*variable->lpvarValue).toString()));
        info.ReleaseVarDesc(variable);
    }
}

void listCoclass(ITypeInfo& info, const TYPEATTR& attributes, std::vector<std::string>& lines) {
    for (UINT i = 0; i < attributes.cImplTypes; ++i) {
        HREFTYPE reference = 0;
        INT flags = 0;
        ComPtr<ITypeInfo> interfaceInfo;
        Bstr name;
        ASSERT_EQ(info.GetRefTypeOfImplType(i, &reference), S_OK);
        ASSERT_EQ(info.GetImplTypeFlags(i, &flags), S_OK);
        ASSERT_EQ(info.GetRefTypeInfo(reference, interfaceInfo.out()), S_OK);
        interfaceInfo->GetDocumentation(MEMBERID_NIL, name.out(), nullptr, nullptr, nullptr);
        lines.push_back(std::string("  ") + ((flags & IMPLTYPEFLAG_FDEFAULT) != 0 ? "default " : "") +
                        narrow(name.get()));
    }
}

std::string headOf(const TYPEATTR& attributes, const std::string& name, const std::string& help) {
    std::string line;
    switch (attributes.typekind) {
        case TKIND_ENUM:
            line = "enum ";
            break;
        case TKIND_COCLASS:
            line = "coclass ";
            break;
        default:
            line = "interface ";
    }
    line += name + " " + textOf(attributes.guid);
    if ((attributes.wTypeFlags & TYPEFLAG_FDUAL) != 0)
        line += " dual";
    if ((attributes.wTypeFlags & TYPEFLAG_FOLEAUTOMATION) != 0)
        line += " oleautomation";
    if ((attributes.wTypeFlags & TYPEFLAG_FNONEXTENSIBLE) != 0)
        line += " nonextensible";
    if ((attributes.wTypeFlags & TYPEFLAG_FCANCREATE) != 0)
        line += " creatable";
    return line + " \"" + help + "\"";
}

}  // namespace

std::string defaultText(const automation::Value& value) {
    if (value.kind() == automation::ValueKind::Object)
        return "nothing";
    std::string text = automation::toUtf8(value.toString());
    if (value.kind() == automation::ValueKind::String) {
        text.insert(text.begin(), '"');
        text.push_back('"');
    }
    return text;
}

std::vector<ListedMember> membersOf(ITypeInfo& info) {
    std::vector<ListedMember> result;
    TYPEATTR* attributes = nullptr;
    EXPECT_EQ(info.GetTypeAttr(&attributes), S_OK);
    const UINT count = attributes->cFuncs;
    info.ReleaseTypeAttr(attributes);
    for (UINT i = 0; i < count; ++i) {
        FUNCDESC* function = nullptr;
        EXPECT_EQ(info.GetFuncDesc(i, &function), S_OK);
        if (function->memid < kInherited)
            result.push_back(memberOf(info, *function));
        info.ReleaseFuncDesc(function);
    }
    return result;
}

std::vector<std::string> listingOf(ITypeLib& library) {
    std::vector<std::string> lines;
    TLIBATTR* attributes = nullptr;
    EXPECT_EQ(library.GetLibAttr(&attributes), S_OK);
    Bstr name;
    Bstr help;
    library.GetDocumentation(-1, name.out(), help.out(), nullptr, nullptr);
    lines.push_back("library " + narrow(name.get()) + " " + textOf(attributes->guid) + " " +
                    std::to_string(attributes->wMajorVerNum) + "." +
                    std::to_string(attributes->wMinorVerNum) + " \"" + narrow(help.get()) + "\"");
    library.ReleaseTLibAttr(attributes);
    for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
        ComPtr<ITypeInfo> info;
        TYPEATTR* type = nullptr;
        EXPECT_EQ(library.GetTypeInfo(i, info.out()), S_OK);
        EXPECT_EQ(info->GetTypeAttr(&type), S_OK);
        library.GetDocumentation(static_cast<INT>(i), name.out(), help.out(), nullptr, nullptr);
        lines.push_back(headOf(*type, narrow(name.get()), narrow(help.get())));
        if (type->typekind == TKIND_ENUM)
            listEnumeration(*info.get(), *type, lines);
        else if (type->typekind == TKIND_COCLASS)
            listCoclass(*info.get(), *type, lines);
        else
            for (const ListedMember& member : membersOf(*info.get()))
                lines.push_back(lineOf(member));
        info->ReleaseTypeAttr(type);
    }
    return lines;
}

}  // namespace quorel::server::testing
