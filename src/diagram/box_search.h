#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "diagram/diagram_model.h"

namespace quorel::diagram {

/// Goes through the boxes in which a text is found, round at the end.
class BoxSearch {
  public:
    /// Looks for another text; the first box with it is the present one.
    void look(const DiagramModel& model, std::u16string_view text);
    void clear() noexcept;

    /// None when the text is found nowhere.
    [[nodiscard]] std::optional<std::size_t> present() const noexcept;
    void goOn() noexcept;
    void goBack() noexcept;

    /// "3 of 17"; "Not found"; nothing while there is no text.
    [[nodiscard]] std::u16string told() const;

  private:
    std::vector<std::size_t> found_;
    std::size_t at_ = 0;
    bool hasText_ = false;
};

}  // namespace quorel::diagram
