#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/automation/class_table.h"
#include "repository/repository.h"
#include "repository/services.h"

namespace quorel::repository {

/// What opening gives: the repository, and a generator of identifiers for what is created in it.
class RepositoryInformation final : public automation::NativeObject {
  public:
    RepositoryInformation(automation::Ref<Repository> repository, Services services)
        : repository_(std::move(repository)), services_(std::move(services)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    [[nodiscard]] automation::Object repositoryObject() const { return automation::Object(repository_); }
    /// "QuorelUtility.UUIDGenerator", created and initialised at the first reading.
    [[nodiscard]] automation::Object uuidGenerator();
    [[nodiscard]] std::u16string fileName() const { return repository_->fileName(); }
    [[nodiscard]] Repository& repository() const noexcept { return *repository_; }

  private:
    automation::Ref<Repository> repository_;
    Services services_;
    automation::Object generator_;
};

/// Opens repositories by file name. A file that it has open already gives the same information object again.
class RepositoryManager final : public automation::NativeObject {
  public:
    explicit RepositoryManager(Services services) : services_(std::move(services)) {}
    [[nodiscard]] const automation::ClassTable& classTable() const override;

    automation::Object open(const std::u16string& fileName);
    automation::Object create(const std::u16string& fileName);
    /// Asks the user for a file and opens it; nothing when the user cancels.
    automation::Object selectDialog();
    /// Closes the repository of that file, or every repository this manager opened when no name is given.
    /// Objects of a closed repository stay harmless: their members throw an error that says so.
    void close(const std::u16string& fileName);

  private:
    struct Opened {
        std::filesystem::path path;
        automation::Ref<RepositoryInformation> information;
    };
    automation::Object keep(const std::u16string& fileName, automation::Ref<Repository> repository);

    Services services_;
    std::vector<Opened> opened_;
};

}  // namespace quorel::repository
