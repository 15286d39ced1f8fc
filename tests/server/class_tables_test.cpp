// Late-bound calls are dispatched by the classes' own tables; they and the published contract say the same.

#include <gtest/gtest.h>

#include "frame/environment.h"
#include "platform/automation/class_table.h"
#include "platform/automation/text.h"
#include "platform/win32/com/this_module.h"
#include "platform/win32/ui/registry_settings_store.h"
#include "platform/win32/ui/windows_clock.h"
#include "platform/win32/ui/windows_desktop.h"
#include "server/QuorelUtility.h"
#include "server/public_classes.h"
#include "tests/server/contract_listing.h"
#include "tests/server/server_dll.h"

namespace quorel::server::testing {
namespace {

using automation::MemberId;
using automation::MemberInfo;
using automation::Object;

struct PublicClass {
    const char* name;
    GUID iid;
};

class ClassTables : public ::testing::TestWithParam<PublicClass> {
  protected:
    ClassTables() { registerPublicClasses(environment); }

    win32::WindowsDesktop desktop{win32::thisModule()};
    win32::RegistrySettingsStore settings;
    win32::WindowsClock clock;
    automation::ClassRegistry classes;
    frame::Environment environment{desktop, classes, clock, settings};
};

bool answers(const MemberInfo& member, const std::string& kind) {
    if (kind == "method")
        return member.method != nullptr;
    if (kind == "get")
        return member.get != nullptr;
    return kind == "put" ? member.put != nullptr && member.putRef == nullptr : member.putRef != nullptr;
}

int accessors(const MemberInfo& member) {
    // An object property takes objects as values too, for languages without `Set`; that is not published.
    return (member.method ? 1 : 0) + (member.get ? 1 : 0) + (member.putRef || member.put ? 1 : 0);
}

TEST_P(ClassTables, SayWhatTheContractSays) {
    const Object object = classes.createObject(u"QuorelUtility." + automation::fromUtf8(GetParam().name));
    const automation::ClassTable& table = object.native()->classTable();
    EXPECT_EQ(automation::toUtf8(table.className()), GetParam().name);
    const auto library = loadContract();
    win32::ComPtr<ITypeInfo> info;
    ASSERT_EQ(library->GetTypeInfoOfGuid(GetParam().iid, info.out()), S_OK);
    int published = 0;
    for (const ListedMember& listed : membersOf(*info.get())) {
        ++published;
        const MemberInfo* member = table.find(automation::fromUtf8(listed.name));
        ASSERT_NE(member, nullptr) << listed.name;
        EXPECT_EQ(automation::toUtf8(member->name), listed.name);
        EXPECT_EQ(member->id, static_cast<MemberId>(listed.id)) << listed.name;
        EXPECT_TRUE(answers(*member, listed.kind)) << listed.kind << " " << listed.name;
        if (listed.kind != "method")
            continue;
        ASSERT_EQ(member->parameters.size(), listed.parameters.size()) << listed.name;
        for (std::size_t i = 0; i < listed.parameters.size(); ++i) {
            const automation::Parameter& parameter = member->parameters[i];
            EXPECT_EQ(automation::toUtf8(parameter.name), listed.parameters[i].name);
            EXPECT_EQ(parameter.defaultValue.has_value(), listed.parameters[i].optional);
            EXPECT_EQ(parameter.defaultValue ? defaultText(*parameter.defaultValue) : "",
                      listed.parameters[i].defaultValue);
        }
    }
    int own = 0;
    for (const MemberInfo& member : table.members())
        own += accessors(member);
    EXPECT_EQ(own, published);
}

INSTANTIATE_TEST_SUITE_P(PublicClasses, ClassTables,
                         ::testing::Values(PublicClass{"UUIDGenerator", __uuidof(::IUUIDGenerator)},
                                           PublicClass{"NameEdit", __uuidof(::INameEdit)},
                                           PublicClass{"MatrixBrowser", __uuidof(::IMatrixBrowser)},
                                           PublicClass{"PropertyEditor", __uuidof(::IPropertyEditor)},
                                           PublicClass{"Explorer", __uuidof(::IExplorer)},
                                           PublicClass{"HTExplorer", __uuidof(::IHTExplorer)},
                                           PublicClass{"Settings", __uuidof(::ISettings)},
                                           PublicClass{"SettingEntry", __uuidof(::ISettingEntry)},
                                           PublicClass{"Options", __uuidof(::IOptions)},
                                           PublicClass{"SixPane", __uuidof(::ISixPane)},
                                           PublicClass{"Blob", __uuidof(::IBlob)},
                                           PublicClass{"SelectItem", __uuidof(::ISelectItem)},
                                           PublicClass{"DirectoryChooser", __uuidof(::IDirectoryChooser)}),
                         [](const auto& instance) { return std::string(instance.param.name); });

}  // namespace
}  // namespace quorel::server::testing
