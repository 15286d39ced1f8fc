#include "repository/import/debian_relations.h"

#include <algorithm>

namespace quorel::repository::debian {

namespace {

bool isDigit(char letter) noexcept {
    return letter >= '0' && letter <= '9';
}

bool isLetter(char letter) noexcept {
    return (letter >= 'a' && letter <= 'z') || (letter >= 'A' && letter <= 'Z');
}

/// Walks over a relation field.
class Scanner {
  public:
    explicit Scanner(std::string_view text) : text_(text) {}

    void skipBlanks() {
        while (!text_.empty() && (text_.front() == ' ' || text_.front() == '\t'))
            text_.remove_prefix(1);
    }
    bool take(char letter) {
        skipBlanks();
        if (text_.empty() || text_.front() != letter)
            return false;
        text_.remove_prefix(1);
        return true;
    }
    [[nodiscard]] bool atEnd() {
        skipBlanks();
        return text_.empty();
    }
    std::string_view takeName() {
        skipBlanks();
        const auto end = std::find_if_not(text_.begin(), text_.end(), [](char letter) {
            return isLetter(letter) || isDigit(letter) || letter == '+' || letter == '-' || letter == '.' ||
                   letter == '_' || letter == '/';
        });
        return takeFront(static_cast<std::size_t>(end - text_.begin()));
    }
    /// What stands before `closing`, which is taken too; nothing when it does not come.
    std::optional<std::string_view> takeUntil(char closing) {
        const std::size_t end = text_.find(closing);
        if (end == std::string_view::npos)
            return std::nullopt;
        const std::string_view inside = takeFront(end);
        text_.remove_prefix(1);
        return inside;
    }

  private:
    std::string_view takeFront(std::size_t length) {
        const std::string_view front = text_.substr(0, length);
        text_.remove_prefix(length);
        return front;
    }
    std::string_view text_;
};

std::string withoutBlanksAround(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    if (first == std::string_view::npos)
        return {};
    return std::string(text.substr(first, text.find_last_not_of(" \t") - first + 1));
}

std::optional<Relation> parseOne(Scanner& scanner) {
    Relation relation;
    relation.package = scanner.takeName();
    if (relation.package.empty())
        return std::nullopt;
    if (scanner.take(':') && scanner.takeName().empty())
        return std::nullopt;
    if (scanner.take('(')) {
        const auto inside = scanner.takeUntil(')');
        if (!inside || inside->find_first_of("<>=") == std::string_view::npos)
            return std::nullopt;
        relation.constraint = withoutBlanksAround(*inside);
    }
    if (scanner.take('[') && !scanner.takeUntil(']'))
        return std::nullopt;
    while (scanner.take('<'))
        if (!scanner.takeUntil('>'))
            return std::nullopt;
    return relation;
}

/// The rank of a letter in a version: "~" before the end, letters before everything else.
int rank(std::string_view text) noexcept {
    if (text.empty() || isDigit(text.front()))
        return 0;
    const char letter = text.front();
    if (letter == '~')
        return -1;
    return isLetter(letter) ? letter : static_cast<unsigned char>(letter) + 256;
}

std::string_view takeNumber(std::string_view& text) {
    const auto end = std::find_if_not(text.begin(), text.end(), isDigit);
    std::string_view number = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(number.size());
    while (number.starts_with('0'))
        number.remove_prefix(1);
    return number;
}

int sign(std::ptrdiff_t difference) noexcept {
    return difference < 0 ? -1 : difference > 0 ? 1 : 0;
}

int compareParts(std::string_view a, std::string_view b) {
    while (!a.empty() || !b.empty()) {
        while ((!a.empty() && !isDigit(a.front())) || (!b.empty() && !isDigit(b.front()))) {
            if (const int difference = rank(a) - rank(b); difference != 0)
                return sign(difference);
            a.remove_prefix(a.empty() ? 0 : 1);
            b.remove_prefix(b.empty() ? 0 : 1);
        }
        const std::string_view x = takeNumber(a);
        const std::string_view y = takeNumber(b);
        if (x.size() != y.size())
            return x.size() < y.size() ? -1 : 1;
        if (const int difference = x.compare(y); difference != 0)
            return sign(difference);
    }
    return 0;
}

struct Version {
    std::string_view epoch, upstream, revision;
};

Version split(std::string_view text) {
    Version version;
    if (const std::size_t colon = text.find(':'); colon != std::string_view::npos) {
        version.epoch = text.substr(0, colon);
        text.remove_prefix(colon + 1);
    }
    const std::size_t dash = text.rfind('-');
    version.upstream = text.substr(0, dash);
    if (dash != std::string_view::npos)
        version.revision = text.substr(dash + 1);
    return version;
}

}  // namespace

std::optional<std::vector<Relation>> parseRelations(std::string_view text) {
    std::vector<Relation> relations;
    Scanner scanner(text);
    for (int group = 1; !scanner.atEnd(); ++group) {
        const std::size_t first = relations.size();
        do {
            std::optional<Relation> relation = parseOne(scanner);
            if (!relation)
                return std::nullopt;
            relation->group = group;
            relations.push_back(*std::move(relation));
        } while (scanner.take('|'));
        if (relations.size() - first > 1)
            for (std::size_t i = first; i < relations.size(); ++i)
                relations[i].alternative = static_cast<int>(i - first + 1);
        if (!scanner.take(',') && !scanner.atEnd())
            return std::nullopt;
    }
    return relations;
}

int compareVersions(std::string_view a, std::string_view b) {
    const Version x = split(a);
    const Version y = split(b);
    if (const int difference = compareParts(x.epoch, y.epoch); difference != 0)
        return difference;
    if (const int difference = compareParts(x.upstream, y.upstream); difference != 0)
        return difference;
    return compareParts(x.revision, y.revision);
}

}  // namespace quorel::repository::debian
