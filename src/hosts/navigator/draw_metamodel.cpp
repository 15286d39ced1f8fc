#include "hosts/navigator/draw_metamodel.h"

#include "diagram/diagram.h"
#include "sixpane/show_metamodel.h"

namespace quorel::hosts {

std::u16string drawMetamodel(const frame::Environment& environment, const automation::Object& repository,
                             const std::u16string& output) {
    const auto diagram = automation::make<diagram::Diagram>(environment);
    sixpane::describeMetamodel(automation::Object(diagram), repository, environment.libraryFolder);
    return diagram->save(output);
}

}  // namespace quorel::hosts
