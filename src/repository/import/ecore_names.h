#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "repository/data_type.h"

namespace quorel::repository::metamodel::ecore {

inline constexpr std::string_view kEcore = "http://www.eclipse.org/emf/2002/Ecore";
inline constexpr std::string_view kGenModel = "http://www.eclipse.org/emf/2002/GenModel";
inline constexpr std::string_view kXsiType = "http://www.w3.org/2001/XMLSchema-instance type";

/// A reference to an element, "DOCUMENT#FRAGMENT". Without a document it is one of the same file.
struct Reference {
    std::string document;
    std::string fragment;
};

/// The references of an attribute such as "#//A ecore:EClass other.ecore#//B", without the kinds of what they
/// lead to.
[[nodiscard]] std::vector<Reference> referencesIn(std::string_view text);

/// The part of a name or an address behind its last slash.
[[nodiscard]] std::string_view lastPart(std::string_view path);

/// The local part of a name: behind a colon or, of a namespace, a blank.
[[nodiscard]] std::string_view localName(std::string_view name);

/// Whether the URI is the namespace of XMI, in one of its versions.
[[nodiscard]] bool isXmi(std::string_view name);

/// The nearest data type of one of Ecore's, or of the XML schema's, by its name there; nothing for an unknown
/// one.
[[nodiscard]] std::optional<DataType> standardType(std::string_view name);
/// The same of a Java class.
[[nodiscard]] std::optional<DataType> javaType(std::string_view className);

}  // namespace quorel::repository::metamodel::ecore
