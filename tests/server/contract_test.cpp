// The published contract stays as it is: names, order, kinds, ids, parameters, defaults, identifiers.

#include <gtest/gtest.h>

#include <map>
#include <sstream>

#include "tests/server/contract_listing.h"
#include "tests/server/server_dll.h"

namespace quorel::server::testing {
namespace {

using win32::ComPtr;

/// contract.txt, as it is checked in.
std::vector<std::string> pinned() {
    const HRSRC resource = ::FindResourceW(nullptr, MAKEINTRESOURCEW(1), MAKEINTRESOURCEW(10));
    EXPECT_NE(resource, nullptr);
    const auto* text = static_cast<const char*>(::LockResource(::LoadResource(nullptr, resource)));
    std::istringstream stream(std::string(text, ::SizeofResource(nullptr, resource)));
    std::vector<std::string> lines;
    for (std::string line; std::getline(stream, line);)
        lines.push_back(line);
    return lines;
}

std::map<std::string, ComPtr<ITypeInfo>> interfacesOf(ITypeLib& library) {
    std::map<std::string, ComPtr<ITypeInfo>> result;
    for (UINT i = 0; i < library.GetTypeInfoCount(); ++i) {
        TYPEKIND kind{};
        EXPECT_EQ(library.GetTypeInfoType(i, &kind), S_OK);
        if (kind != TKIND_DISPATCH)
            continue;
        ComPtr<ITypeInfo> info;
        win32::Bstr name;
        EXPECT_EQ(library.GetTypeInfo(i, info.out()), S_OK);
        library.GetDocumentation(static_cast<INT>(i), name.out(), nullptr, nullptr, nullptr);
        result.emplace(std::string(name.get(), name.get() + ::SysStringLen(name.get())), info);
    }
    return result;
}

TEST(Contract, IsAsPublished) {
    const auto library = loadContract();
    const std::vector<std::string> now = listingOf(*library.get());
    const std::vector<std::string> published = pinned();
    for (std::size_t i = 0; i < std::max(now.size(), published.size()); ++i) {
        ASSERT_LT(i, published.size()) << "new: " << now[i];
        ASSERT_LT(i, now.size()) << "gone: " << published[i];
        EXPECT_EQ(now[i], published[i]);
    }
}

TEST(Contract, HoldsEveryPublicClass) {
    const auto library = loadContract();
    const auto interfaces = interfacesOf(*library.get());
    for (const char* name : {"ISettings", "IOptions", "IUUIDGenerator", "IProgressBar", "ISixPane",
                             "ISelectItem", "IExplorer", "INameEdit", "IHTExplorer", "IBlob",
                             "IPropertyEditor", "IProgress", "IMatrixBrowser", "IDirectoryChooser"})
        EXPECT_TRUE(interfaces.contains(name)) << name;
}

TEST(Contract, NumbersMembersFromOneInTheirOrder) {
    const auto library = loadContract();
    for (const auto& [name, info] : interfacesOf(*library.get())) {
        MEMBERID last = 0;
        std::string lastName;
        for (const ListedMember& member : membersOf(*info.get())) {
            // The accessors of one property follow each other and share its id.
            EXPECT_EQ(member.id, member.name == lastName ? last : last + 1) << name << "." << member.name;
            last = member.id;
            lastName = member.name;
        }
        EXPECT_GT(last, 0) << name;
    }
}

TEST(Contract, ExplainsEveryMember) {
    const auto library = loadContract();
    for (const auto& [name, info] : interfacesOf(*library.get())) {
        for (const ListedMember& member : membersOf(*info.get()))
            EXPECT_FALSE(member.help.empty()) << name << "." << member.name;
    }
}

TEST(Contract, OptionalParametersHaveDefaults) {
    const auto library = loadContract();
    for (const auto& [name, info] : interfacesOf(*library.get())) {
        for (const ListedMember& member : membersOf(*info.get())) {
            for (const ListedParameter& parameter : member.parameters)
                EXPECT_EQ(parameter.optional, !parameter.defaultValue.empty()) << name << "." << member.name;
        }
    }
}

}  // namespace
}  // namespace quorel::server::testing
