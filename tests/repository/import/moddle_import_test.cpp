#include "repository/import/moddle_import.h"

#include "tests/repository/import/metamodel_fixture.h"

namespace quorel::repository::testing {
namespace {

class Moddle : public MetamodelImport {
  protected:
    Moddle() : MetamodelImport(&metamodel::readModdle) {}
    /// A package "z" with these types.
    static Texts zoo(const std::string& types) {
        return {{"zoo.json", "{\n\"name\": \"Zoo\",\n\"prefix\": \"z\",\n\"types\": [\n" + types + "\n]}"}};
    }
};

TEST_F(Moddle, TypesAreMetaNodesAndTheirPropertiesPropertiesOrMetaLinks) {
    const auto outcome = import(zoo(R"(
        {"name": "Animal", "isAbstract": true, "properties": [
            {"name": "title", "type": "String", "isAttr": true},
            {"name": "legs", "type": "Integer", "default": 4},
            {"name": "tame", "type": "Boolean", "default": false},
            {"name": "weight", "type": "Real"},
            {"name": "calls", "type": "String", "isMany": true},
            {"name": "code", "type": "String", "isId": true}]},
        {"name": "Cage", "properties": [
            {"name": "animals", "type": "Animal", "isMany": true},
            {"name": "guest", "type": "z:Animal", "isReference": true, "isAttr": true}]},
        {"name": "Lion", "superClass": ["Animal"]})"));
    EXPECT_EQ(metaNodes(), (Lines{"Animal", "Cage", "Lion"}));
    EXPECT_EQ(metaLinks(), (Lines{"Cage.animals.Animal", "Cage.guest.Animal", "Lion.extends.Animal"}));
    EXPECT_EQ(properties(u"Animal"), (Lines{"title: String", "legs: Integer", "tame: Boolean",
                                            "weight: Double", "calls: MultiLine", "code: String"}));
    EXPECT_EQ(properties(u"Cage"), Lines());
    EXPECT_EQ(describedNode(u"Animal"), "abstract, package z");
    EXPECT_EQ(describedProperty(u"Animal", u"legs"), "0..1, default 4");
    EXPECT_EQ(describedProperty(u"Animal", u"tame"), "0..1, default false");
    EXPECT_EQ(describedProperty(u"Animal", u"calls"), "0..*");
    EXPECT_EQ(describedProperty(u"Animal", u"code"), "0..1, identifies");
    EXPECT_EQ(describedLink(u"Cage.animals.Animal"), "0..*, contained");
    EXPECT_EQ(describedLink(u"Cage.guest.Animal"), "0..1");
    EXPECT_EQ(outcome.metaNodes, 3);
    EXPECT_EQ(outcome.metaLinks, 3);
    EXPECT_EQ(outcome.properties, 6);
    EXPECT_TRUE(outcome.notTaken.empty());
    EXPECT_TRUE(outcome.renamed.empty());
}

TEST_F(Moddle, AnEnumerationIsAMetaNodeOfLiteralsAndTheValuesOfItsAttributes) {
    import(
        {{ "z.json",
           R"({"prefix": "z", "types": [{"name": "Lion", "properties": [
        {"name": "mood", "type": "Mood", "isAttr": true, "default": "calm"},
        {"name": "moods", "type": "Mood", "isMany": true},
        {"name": "none", "type": "Empty"}]}],
        "enumerations": [{"name": "Mood", "literalValues": [{"name": "calm"}, {"name": "hungry"}]},
                         {"name": "Empty"}]})" }});
    EXPECT_EQ(metaNodes(), (Lines{"Lion", "Mood", "Empty"}));
    EXPECT_EQ(properties(u"Lion"),
              (Lines{"mood: Enumeration calm|hungry", "moods: MultiLine", "none: String"}));
    EXPECT_EQ(properties(u"Mood"), (Lines{"calm: Enumeration calm", "hungry: Enumeration hungry"}));
    EXPECT_EQ(metaLinks(), (Lines{"Lion.mood.Mood", "Lion.moods.Mood", "Lion.none.Empty"}));
    EXPECT_EQ(describedProperty(u"Lion", u"mood"), "0..1, one of Mood, default calm");
    EXPECT_EQ(describedNode(u"Mood"), "enumeration, package z");
}

TEST_F(Moddle, DescriptorsReferToEachOtherWhateverTheirOrder) {
    import({{"a.json", R"({"prefix": "a", "types": [{"name": "A", "superClass": ["b:B"],
                           "properties": [{"name": "x", "type": "b:Real"}]}]})"},
            { "b.json",
              R"({"prefix": "b", "types": [{"name": "Real"}, {"name": "B", "properties": [
                           {"name": "a", "type": "a:A"}, {"name": "far", "type": "c:Far"},
                           {"name": "any", "type": "Element"}, {"name": "some", "type": "Element", "isMany": true}]}]})"
            }});
    EXPECT_EQ(metaNodes(), (Lines{"A", "B", "Far", "Element"}));
    EXPECT_EQ(metaLinks(), (Lines{"A.extends.B", "B.a.A", "B.far.Far", "B.any.Element", "B.some.Element"}));
    EXPECT_EQ(properties(u"A"), (Lines{"x: Double"}));
    EXPECT_EQ(describedNode(u"Far"), "named here, described in another package: c");
}

TEST_F(Moddle, ClashingNamesAreToldApartAndListed) {
    const auto outcome =
        import({{"a.json", R"({"prefix": "a", "types": [{"name": "T", "properties": [
                    {"name": "x", "type": "String"}, {"name": "X", "type": "String"},
                    {"name": "extends", "type": "b:T"}], "superClass": ["b:T"]}, {"name": "MetaNode"}]})"},
                {"b.json", R"({"prefix": "b", "types": [{"name": "T"}, {"name": "a:T"}]})"}});
    EXPECT_EQ(metaNodes(), (Lines{"a:T_2", "a:MetaNode", "b:T", "a:T"}));
    EXPECT_EQ(properties(u"a:T_2"), (Lines{"x: String", "X_2: String"}));
    EXPECT_EQ(metaLinks(), (Lines{"a:T_2.extends.b:T", "a:T_2.extends_2.b:T"}));
    const std::vector<std::u16string> renamed{u"T is a:T_2", u"MetaNode is a:MetaNode", u"T is b:T",
                                              u"a:T_2.X is a:T_2.X_2",
                                              u"a:T_2.extends.b:T is a:T_2.extends_2.b:T"};
    EXPECT_EQ(outcome.renamed, renamed);
}

TEST_F(Moddle, WhatHasNoPlaceIsCountedByKind) {
    const auto outcome =
        import({{"z.json", R"({"prefix": "z", "uri": "urn:z", "xml": {"tagAlias": "lowerCase"},
        "associations": [], "types": [{"name": "A", "extends": ["z:B"], "isAbstract": false, "properties": [
            {"name": "x", "type": "String", "xml": {"serialize": "property"}, "isVirtual": true},
            {"name": "y", "type": "String", "isVirtual": true, "isReadOnly": false}]}, {"name": "B"}, {"name": "String"}],
        "enumerations": [{"name": "E", "odd": 1, "literalValues": [{"name": "l", "odd": 1}]}]})"}});
    const metamodel::NotTaken expected{{"data type declared again", 1},    {"enumeration member 'odd'", 1},
                                       {"literal member 'odd'", 1},        {"package member 'xml'", 1},
                                       {"property member 'isVirtual'", 2}, {"property member 'xml'", 1},
                                       {"type member 'extends'", 1}};
    EXPECT_EQ(outcome.notTaken, expected);
}

TEST_F(Moddle, WhatIsMalformedIsNamedWithFileAndLine) {
    expectRefused({{"m.json", "{\n\"prefix\": \"z\",\n\"types\": [,]}"}}, "m.json:3: ");
    expectRefused({{"m.json", ""}}, "m.json:1: ");
    expectRefused({{"m.json", "[]"}}, "m.json:1: an object is needed here");
    expectRefused({{"m.json", "{}\n}"}}, "m.json:2: ");
    expectRefused({{"m.json", "{\"prefix\": 1e999}"}}, "m.json:1: number overflow");
    expectRefused({{"m.json", "{\"types\": []}"}}, "m.json:1: the member 'prefix' is missing");
    expectRefused({{"m.json", "{\"prefix\": \"z\xFF\"}"}}, "m.json:1: ");
    expectRefused({{"m.json", "{\"prefix\": \"z\",\n\"a\": 1,\n\"a\": 2}"}},
                  "m.json:3: the member 'a' stands twice");
    expectRefused(zoo(R"({"name": ""})"), "zoo.json:5: 'name' is no text");
    expectRefused(zoo(R"({"name": "A", "properties": {}})"), "zoo.json:5: 'properties' is no list");
    expectRefused(zoo(R"({"name": "A", "isAbstract": 1})"), "zoo.json:5: 'isAbstract' is neither");
    expectRefused(zoo("{\"name\": \"A\", \"properties\": [\n{\"name\": \"x\"}]}"),
                  "zoo.json:6: the member 'type' is missing");
    expectRefused(zoo("{\"name\": \"A\", \"properties\": [{\"name\": \"x\",\n\"type\": \"B\"}]}"),
                  "zoo.json:6: there is no type 'z:B'");
    expectRefused(zoo("{\"name\": \"A\", \"superClass\": [\"B\"]}"), "zoo.json:5: there is no type 'z:B'");
    expectRefused(zoo("{\"name\": \"A\"},\n{\"name\": \"z:A\"}"),
                  "zoo.json:6: the type 'z:A' stands already at zoo.json:5");
    expectRefused({{"a.json", R"({"prefix": "z"})"}, {"b.json", R"({"prefix": "z"})"}},
                  "b.json:1: another file has the prefix 'z' already");
    expectRefused(zoo(R"({"name": "A", "properties": [{"name": "x", "type": "String", "default": []}]})"),
                  "a default is no list");
}

TEST_F(Moddle, HostileTextsDoNoHarm) {
    expectRefused({{"m.json", std::string(1'000'000, '[')}}, "more than 200 deep");
    std::string deep;
    for (int i = 0; i < 100'000; ++i)
        deep += "{\"a\":";
    expectRefused({{"m.json", deep}}, "more than 200 deep");
    const std::string longName(1'000'000, 'n');
    import(zoo(R"({"name": ")" + longName + R"(", "properties": [
        {"name": ")" +
               longName + R"(", "type": ")" + longName + R"("}, {"name": "\ud800", "type": "String"},
        {"name": "\ud83d\ude00 \u0000.", "type": "String"}]})"));
    EXPECT_EQ(metaNodes(), Lines{longName});
    EXPECT_EQ(metaLinks(), Lines{longName + "." + longName + "." + longName});
    const Object type = repository().metaNodes().item(automation::fromUtf8(longName)).toObject();
    const Object list = type.get(u"Properties").toObject();
    EXPECT_EQ(list.item(1).toObject().get(u"name").toString(), std::u16string(1, 0xD800));
    EXPECT_EQ(list.item(2).toObject().get(u"name").toString(), std::u16string(u"\xD83D\xDE00 \0.", 5));
}

TEST_F(Moddle, ManyOfOneNameAreNamedQuickly) {
    std::string types = R"({"name": "A", "properties": [)";
    for (int i = 0; i < 20'000; ++i)
        types += std::string(i == 0 ? "" : ",") + R"({"name": "x", "type": "A"})";
    const auto outcome = import(zoo(types + "]}"));
    EXPECT_EQ(outcome.metaLinks, 20'000);
    EXPECT_EQ(outcome.renamed.size(), 19'999U);
    EXPECT_EQ(outcome.renamed.back(), u"A.x.A is A.x_20000.A");
}

}  // namespace
}  // namespace quorel::repository::testing
