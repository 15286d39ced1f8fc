#pragma once

#include <array>
#include <string>

#include "repository/sqlite/statement.h"

namespace quorel::repository::sqlite {

/// A statement for nodes and the same for links, chosen by `Kind`.
using PerKind = std::array<Statement, 2>;

/// What a collection of elements is asked, for one shape of collection.
struct ScopeStatements {
    ScopeStatements(Database& database, const std::string& condition, const std::string& index,
                    const std::string& table);
    Statement count;  // type, node
    Statement page;   // type, node, after, upTo, limit
    Statement find;   // type, node, identifier
    Statement at;     // type, node, offset
};

/// Every statement on nodes and links. The parameters of each stand behind it.
struct ElementStatements {
    explicit ElementStatements(Database& database);
    PerKind last;  // -
    std::array<ScopeStatements, 4> scopes;
    Statement nodeNamed;           // type, name
    PerKind exists;                // id
    PerKind name;                  // id
    PerKind identifier;            // id
    PerKind setName;               // id, name
    std::array<Statement, 2> end;  // by direction: id
    PerKind value;                 // id, property
    PerKind setValue;              // id, property, value
    PerKind unsetValue;            // id, property
    Statement addNode;             // type, name, identifier
    Statement addLink;             // type, source, target, name, identifier
    Statement linksAt;             // node
    Statement removeLinksAt;       // node
    PerKind remove;                // id
    Statement detach;              // id, bit
    Statement isListed;            // id, bit
};

/// Every statement on meta objects.
struct MetaStatements {
    explicit MetaStatements(Database& database);
    Statement byId;            // id
    Statement byName;          // kind, name
    Statement all;             // kind
    Statement leaving;         // node
    Statement entering;        // node
    Statement countAll;        // kind
    Statement countLeaving;    // node
    Statement countEntering;   // node
    Statement add;             // kind, name, description, dynamic, persistent, source, target
    Statement setDescription;  // id, description
    Statement setPersistent;   // id, persistent
    Statement remove;          // id
    Statement properties;      // owner, after which
    Statement values;          // property
    Statement addProperty;     // owner, name, datatype, description
    Statement addValue;        // property, position, value
};

/// Statements on the repository's own properties and on transactions.
struct FileStatements {
    explicit FileStatements(Database& database);
    Statement begin, beginReading, commit, rollback;
    Statement properties;   // -
    Statement property;     // name
    Statement setProperty;  // name, value
};

}  // namespace quorel::repository::sqlite
