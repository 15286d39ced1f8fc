#pragma once

#include <string_view>

#include "frame/environment.h"
#include "platform/automation/class_table.h"
#include "platform/automation/native_object.h"
#include "platform/automation/object.h"
#include "platform/automation/value.h"

namespace quorel::sixpane {

/// Describes the metamodel of a repository to a diagram component: a box for every meta node but the meta
/// level's own, a connection for every meta link. Nothing is arranged or shown yet. `libraryFolder` is where
/// the picture of the boxes' headers lies.
void describeMetamodel(const automation::Object& diagram, const automation::Object& repository,
                       std::u16string_view libraryFolder);

/// Draws the metamodel of a repository as a class diagram: a box for every meta node but the meta level's
/// own, a connection for every meta link. Keeps nothing between calls. Hosts create it by name as
/// "QuorelUtility.ShowMetamodel"; it stands outside the published type library.
///
/// The diagram component is created by its programmatic identifier, and everything is called by name: any
/// repository and any such component will do.
class ShowMetamodel final : public automation::NativeObject {
  public:
    explicit ShowMetamodel(const frame::Environment& environment) : environment_(environment) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    /// Returns an empty variant once the user has closed the diagram. What fails is shown in the error box,
    /// and the diagram is not.
    automation::Value Show(const automation::Object& repository);

  private:
    void draw(const automation::Object& repository) const;

    frame::Environment environment_;
};

}  // namespace quorel::sixpane
