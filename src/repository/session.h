#pragma once

#include "platform/automation/class_table.h"
#include "repository/component_manager.h"
#include "repository/repository_manager.h"
#include "repository/services.h"

namespace quorel::repository {

/// A host's session: one repository manager and the registry of its component windows.
class Session final : public automation::NativeObject {
  public:
    explicit Session(Services services)
        : repositoryManager_(automation::make<RepositoryManager>(std::move(services))),
          componentManager_(automation::make<ComponentManager>()) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    [[nodiscard]] automation::Object repositoryManager() const {
        return automation::Object(repositoryManager_);
    }
    [[nodiscard]] automation::Object componentManager() const {
        return automation::Object(componentManager_);
    }

  private:
    automation::Ref<RepositoryManager> repositoryManager_;
    automation::Ref<ComponentManager> componentManager_;
};

}  // namespace quorel::repository
