#include "server/public_classes.h"

#include "diagram/diagram.h"
#include "dialogs/directory_chooser.h"
#include "dialogs/name_edit.h"
#include "dialogs/progress.h"
#include "dialogs/progress_bar.h"
#include "dialogs/property_editor.h"
#include "dialogs/select_item.h"
#include "explorer/explorer.h"
#include "explorer/ht_explorer.h"
#include "frame/blob.h"
#include "frame/uuid_generator.h"
#include "matrix/matrix_browser.h"
#include "platform/controls/file_selection.h"
#include "settings/options.h"
#include "settings/setting_entry.h"
#include "settings/settings.h"
#include "sixpane/show_metamodel.h"
#include "sixpane/six_pane.h"

namespace quorel::server {

void registerPublicClasses(const frame::Environment& environment) {
    using automation::make;
    using automation::Object;
    environment.classes.add(u"QuorelUtility.UUIDGenerator",
                            [environment] { return Object(make<frame::UUIDGenerator>(environment.clock)); });
    environment.classes.add(u"QuorelUtility.Blob",
                            [environment] { return Object(make<frame::Blob>(environment.pictureObjects)); });
    environment.classes.add(u"QuorelUtility.DirectoryChooser", [environment] {
        return Object(make<dialogs::DirectoryChooser>(environment.folderBrowser));
    });
    environment.classes.add(u"QuorelUtility.NameEdit",
                            [environment] { return Object(make<dialogs::NameEdit>(environment)); });
    environment.classes.add(u"QuorelUtility.PropertyEditor",
                            [environment] { return Object(make<dialogs::PropertyEditor>(environment)); });
    environment.classes.add(u"QuorelUtility.Progress",
                            [environment] { return Object(make<dialogs::Progress>(environment)); });
    environment.classes.add(u"QuorelUtility.ProgressBar",
                            [environment] { return Object(make<dialogs::ProgressBar>(environment)); });
    environment.classes.add(u"QuorelUtility.SelectItem",
                            [environment] { return Object(make<dialogs::SelectItem>(environment)); });
    environment.classes.add(u"QuorelUtility.SixPane",
                            [environment] { return Object(make<sixpane::SixPane>(environment)); });
    environment.classes.add(u"QuorelUtility.MatrixBrowser",
                            [environment] { return Object(make<matrix::MatrixBrowser>(environment)); });
    environment.classes.add(u"QuorelUtility.Explorer",
                            [environment] { return Object(make<explorer::Explorer>(environment)); });
    environment.classes.add(u"QuorelUtility.HTExplorer",
                            [environment] { return Object(make<explorer::HTExplorer>(environment)); });
    environment.classes.add(u"QuorelUtility.Settings",
                            [environment] { return Object(make<settings::Settings>(environment.settings)); });
    environment.classes.add(u"QuorelUtility.SettingEntry",
                            [] { return Object(make<settings::SettingEntry>()); });
    environment.classes.add(u"QuorelUtility.Options",
                            [environment] { return Object(make<settings::Options>(environment)); });
    environment.classes.add(u"QuorelDiagramWindow.Diagram",
                            [environment] { return Object(make<diagram::Diagram>(environment)); });
    environment.classes.add(u"QuorelUtility.ShowMetamodel",
                            [environment] { return Object(make<sixpane::ShowMetamodel>(environment)); });
    controls::registerFileClasses(environment.classes, environment.fileDialogs);
}

}  // namespace quorel::server
