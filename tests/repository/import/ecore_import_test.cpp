#include "repository/import/ecore_import.h"

#include "tests/repository/import/metamodel_fixture.h"

namespace quorel::repository::testing {
namespace {

class Ecore : public MetamodelImport {
  protected:
    Ecore() : MetamodelImport(&metamodel::readEcore) {}

    static constexpr const char* kSpaces =
        R"( xmlns:xmi="http://www.omg.org/XMI" xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"
 xmlns:ecore="http://www.eclipse.org/emf/2002/Ecore" )";

    /// A model whose package has these children, from its third line on.
    static std::string model(const std::string& children, const std::string& name = "zoo") {
        return std::string("<ecore:EPackage xmi:version=\"2.0\"") + kSpaces + "name=\"" + name +
               "\" nsURI=\"urn:" + name + "\" nsPrefix=\"z\">\n" + children + "</ecore:EPackage>";
    }
    static Texts zoo(const std::string& children) { return {{"zoo.ecore", model(children)}}; }

    static std::string type(const std::string& name, const std::string& children,
                            const std::string& attributes = "") {
        return "<eClassifiers xsi:type=\"ecore:EClass\" name=\"" + name + "\" " + attributes + ">" +
               children + "</eClassifiers>\n";
    }
    static std::string feature(const std::string& kind, const std::string& name,
                               const std::string& attributes) {
        return "<eStructuralFeatures xsi:type=\"ecore:" + kind + "\" name=\"" + name + "\" " + attributes +
               "/>";
    }
    static std::string standard(const std::string& name) {
        return "eType=\"ecore:EDataType http://www.eclipse.org/emf/2002/Ecore#//" + name + "\"";
    }
};

TEST_F(Ecore, ClassesAreMetaNodesAndTheirFeaturesPropertiesOrMetaLinks) {
    const auto outcome = import(zoo(
        type("Animal",
             feature("EAttribute", "title", standard("EString") + " lowerBound=\"1\"") +
                 feature("EAttribute", "code", standard("ELong") + " iD=\"true\"") +
                 feature("EAttribute", "calls", standard("EString") + " upperBound=\"-1\"") +
                 feature("EReference", "cage", "eType=\"#//Cage\" eOpposite=\"#//Cage/animals\""),
             "abstract=\"true\"") +
        type("Cage", feature("EReference", "animals",
                             "eType=\"#//Animal\" lowerBound=\"2\" upperBound=\"9\" containment=\"true\"")) +
        type("Lion", "", "eSuperTypes=\"#//Animal #//Cage\"")));
    EXPECT_EQ(metaNodes(), (Lines{"Animal", "Cage", "Lion"}));
    EXPECT_EQ(metaLinks(),
              (Lines{"Animal.cage.Cage", "Cage.animals.Animal", "Lion.extends.Animal", "Lion.extends.Cage"}));
    EXPECT_EQ(properties(u"Animal"), (Lines{"title: String", "code: Double", "calls: MultiLine"}));
    EXPECT_EQ(describedNode(u"Animal"), "abstract, package zoo");
    EXPECT_EQ(describedProperty(u"Animal", u"title"), "1");
    EXPECT_EQ(describedProperty(u"Animal", u"code"), "0..1, identifies");
    EXPECT_EQ(describedLink(u"Cage.animals.Animal"), "2..9, contained");
    EXPECT_EQ(describedLink(u"Animal.cage.Cage"), "0..1, opposite animals");
    EXPECT_TRUE(outcome.notTaken.empty());
}

TEST_F(Ecore, AttributesHaveTheNearestDataType) {
    std::string features;
    for (const char* name : {"EString", "EInt", "EShort", "ELong", "EDouble", "EBooleanObject", "EDate",
                             "EByteArray", "EBigInteger", "EJavaObject"})
        features += feature("EAttribute", name, standard(name));
    features += feature("EAttribute", "own", "eType=\"#//Address\"") +
                feature("EAttribute", "size", "eType=\"ecore:EDataType #//Size\"") +
                feature("EAttribute", "untyped", "");
    const auto outcome = import(
        zoo(type("A", features) +
            R"(<eClassifiers xsi:type="ecore:EDataType" name="Address" instanceClassName="java.net.URI"/>
           <eClassifiers xsi:type="ecore:EDataType" name="Size" instanceClassName="int"/>)"));
    EXPECT_EQ(properties(u"A"), (Lines{"EString: String", "EInt: Integer", "EShort: Integer", "ELong: Double",
                                       "EDouble: Double", "EBooleanObject: Boolean", "EDate: Date",
                                       "EByteArray: Binary", "EBigInteger: String", "EJavaObject: String",
                                       "own: String", "size: Integer", "untyped: String"}));
    EXPECT_EQ(metaNodes(), Lines{"A"});
    EXPECT_EQ(outcome.notTaken.size(), 1U);
    EXPECT_EQ(outcome.notTaken.begin()->second, 2);
}

TEST_F(Ecore, AnEnumerationIsAMetaNodeOfLiteralsAndTheValuesOfItsAttributes) {
    import(zoo(type("Lion", feature("EAttribute", "mood",
                                    "eType=\"#//Mood\" defaultValueLiteral=\"calm\" derived=\"true\"")) +
               R"(<eClassifiers xsi:type="ecore:EEnum" name="Mood">
                  <eLiterals name="calm"/><eLiterals name="hungry" value="7" literal="Very hungry"/></eClassifiers>)"));
    EXPECT_EQ(properties(u"Lion"), (Lines{"mood: Enumeration calm|Very hungry"}));
    EXPECT_EQ(properties(u"Mood"), (Lines{"calm: Enumeration calm", "Very hungry: Enumeration Very hungry"}));
    EXPECT_EQ(metaLinks(), (Lines{"Lion.mood.Mood"}));
    EXPECT_EQ(describedProperty(u"Lion", u"mood"), "0..1, derived, one of Mood, default calm");
    EXPECT_EQ(describedProperty(u"Mood", u"Very hungry"), "value 7, named hungry");
}

TEST_F(Ecore, NestedPackagesAndSeveralOutermostOnesAreFound) {
    import(
        {{ "all.ecore",
           std::string("<xmi:XMI xmi:version=\"2.0\"") + kSpaces + R"(>
        <ecore:EPackage name="a"><eSubpackages name="in" nsURI="urn:in"><eSubpackages name="deep">)" +
               type("A", "", "eSuperTypes=\"/1/B #//in/A\"") + "</eSubpackages>" +
               type("A", "", "eSuperTypes=\"#/1/B #//in/deep/A\"") +
               "</eSubpackages></ecore:EPackage><ecore:EPackage name=\"b\">" +
               type("B", "", "eSuperTypes=\"urn:in#//deep/A ecore:EClass urn:in#//A\"") +
               "</ecore:EPackage></xmi:XMI>" }});
    EXPECT_EQ(metaNodes(), (Lines{"deep:A", "in:A", "B"}));
    EXPECT_EQ(metaLinks(), (Lines{"deep:A.extends.B", "deep:A.extends.in:A", "in:A.extends.B",
                                  "in:A.extends.deep:A", "B.extends.deep:A", "B.extends.in:A"}));
}

TEST_F(Ecore, FilesReferToEachOtherByFileNameOrAddress) {
    const auto outcome = import(
        {{"models/a.ecore", model(type("A", feature("EReference", "b", "eType=\"ecore:EClass b.ecore#//B\""),
                                       "eSuperTypes=\"platform:/plugin/x/model/b.ecore#//B\""),
                                  "a")},
         {"models/b.ecore",
          model(type("B", feature("EReference", "a", "eType=\"urn:a#//A\"") +
                              feature("EReference", "any", "eType=\"ecore:EClass http://x/Far#//Object\"") +
                              feature("EAttribute", "far", "eType=\"ecore:EEnum far.ecore#//Kind\"")),
                "b")}});
    EXPECT_EQ(metaNodes(), (Lines{"A", "B", "Object"}));
    EXPECT_EQ(metaLinks(), (Lines{"A.extends.B", "A.b.B", "B.a.A", "B.any.Object"}));
    EXPECT_EQ(properties(u"B"), (Lines{"far: String"}));
    EXPECT_EQ(describedNode(u"Object"), "named here, described in http://x/Far");
    const metamodel::NotTaken expected{{"data type or enumeration of a file that is not read", 1}};
    EXPECT_EQ(outcome.notTaken, expected);
}

TEST_F(Ecore, ReferencesMayBeElementsAndIdentifiers) {
    import(
        zoo("<eClassifiers xsi:type=\"ecore:EClass\" name=\"A\" xmi:id=\"_a\"/>\n" +
            type("B", R"(<eSuperTypes href="#_a"/><eStructuralFeatures xsi:type="ecore:EReference" name="a">
                            <eType xsi:type="ecore:EClass" href="#//A"/><eOpposite href="#//A/b"/>
                            </eStructuralFeatures>)" +
                          feature("EReference", "same", "eType=\"_a\""))));
    EXPECT_EQ(metaLinks(), (Lines{"B.extends.A", "B.a.A", "B.same.A"}));
    EXPECT_EQ(describedLink(u"B.a.A"), "0..1, opposite b");
}

TEST_F(Ecore, OfGenericsTheClassesAreTaken) {
    const auto outcome = import(zoo(
        type("Base", "") +
        type("Box", R"(<eTypeParameters name="T"><eBounds eClassifier="#//Base"/></eTypeParameters>
                       <eTypeParameters name="U"/><eTypeParameters name="V"><eBounds eTypeParameter="#//Box/V"/></eTypeParameters>
                       <eStructuralFeatures xsi:type="ecore:EReference" name="bounded"><eGenericType eTypeParameter="#//Box/T"/></eStructuralFeatures>
                       <eStructuralFeatures xsi:type="ecore:EReference" name="free"><eGenericType eTypeParameter="#//Box/U"/></eStructuralFeatures>
                       <eStructuralFeatures xsi:type="ecore:EReference" name="itself"><eGenericType eTypeParameter="#//Box/V"/></eStructuralFeatures>
                       <eStructuralFeatures xsi:type="ecore:EAttribute" name="value"><eGenericType eTypeParameter="#//Box/U"/></eStructuralFeatures>)") +
        type(
            "Crate",
            R"(<eGenericSuperTypes eClassifier="#//Box"><eTypeArguments eClassifier="#//Base"/></eGenericSuperTypes>)",
            "eSuperTypes=\"#//Box\"")));
    EXPECT_EQ(metaLinks(), (Lines{"Box.bounded.Base", "Crate.extends.Box"}));
    EXPECT_EQ(properties(u"Box"), (Lines{"value: String"}));
    const metamodel::NotTaken expected{
        {"reference without a class", 2}, {"type argument", 1}, {"type parameter", 3}};
    EXPECT_EQ(outcome.notTaken, expected);
}

TEST_F(Ecore, DocumentationIsTheDescriptionAndTheRestIsCountedByKind) {
    const std::string documented =
        R"(<eAnnotations source="http://www.eclipse.org/emf/2002/GenModel"><details key="documentation" value="Big &amp; &#x3C;wild>"/></eAnnotations>)";
    const std::string other = R"(<eAnnotations source="urn:x"><details key="k" value="v"/></eAnnotations>)";
    const auto outcome = import(
        zoo(other +
            type("A",
                 documented + other + R"(<eOperations name="feed"><eParameters name="what"/></eOperations>
            <eStructuralFeatures xsi:type="ecore:EAttribute" name="x" volatile="true" transient="true" eType="#//E">)" +
                     documented + R"(<eKeys href="#//A/x"/></eStructuralFeatures><odd/>)",
                 "instanceClassName=\"x.Y\"") +
            "<eClassifiers xsi:type=\"ecore:EEnum\" name=\"E\"><eLiterals name=\"l\" "
            "odd=\"1\"/></eClassifiers>\n<odd/>"));
    EXPECT_EQ(describedNode(u"A"), "package zoo\nBig & <wild>");
    EXPECT_EQ(describedProperty(u"A", u"x"), "0..1, one of E\nBig & <wild>");
    const metamodel::NotTaken expected{{"annotation", 1},
                                       {"annotation of a package", 1},
                                       {"classifier attribute 'instanceClassName'", 1},
                                       {"element 'odd'", 2},
                                       {"feature attribute 'transient'", 1},
                                       {"feature attribute 'volatile'", 1},
                                       {"key of a reference", 1},
                                       {"literal attribute 'odd'", 1},
                                       {"operation", 1}};
    EXPECT_EQ(outcome.notTaken, expected);
}

TEST_F(Ecore, WhatIsMalformedIsNamedWithFileAndLine) {
    expectRefused({{"m.ecore", ""}}, "m.ecore:1: no element found");
    expectRefused({{"m.ecore", "<a>\n<b></a>"}}, "m.ecore:2: mismatched tag");
    expectRefused({{"m.ecore", "<a/>"}}, "m.ecore:1: this is no Ecore model");
    expectRefused({{"m.ecore", "<ecore:EPackage name='a'/>"}}, "m.ecore:1: unbound prefix");
    expectRefused({{"m.ecore", "<a b='\xFF'/>"}}, "m.ecore:1: ");
    expectRefused({{"m.ecore", model("", "")}}, "m.ecore:1: the element 'EPackage' has no name");
    expectRefused(zoo(type("", "")), "zoo.ecore:3: the element 'eClassifiers' has no name");
    expectRefused(zoo(type("A", "") + type("A", "")),
                  "zoo.ecore:4: the classifier 'A' stands already at zoo.ecore:3");
    expectRefused(zoo("<eClassifiers name=\"A\"/>"), "zoo.ecore:3: 'A' is neither a class nor");
    expectRefused(zoo("<eSubpackages name='p'/>\n<eSubpackages name='p'/>"), "zoo.ecore:4: the package 'p'");
    expectRefused(zoo("\n" + type("A", "", "eSuperTypes=\"#//B\"")),
                  "zoo.ecore:4: there is no classifier '#//B'");
    expectRefused(zoo(type("A", feature("EReference", "x", "eType=\"#//A/T\""))), "no classifier '#//A/T'");
    expectRefused(zoo(type("A", feature("EReference", "x", "eType=\"urn:zoo#//B\""))), "'urn:zoo#//B'");
    expectRefused(zoo(type("A", feature("EReference", "x", "eType=\"#/\""))), "no classifier '#/'");
    expectRefused(zoo(type("A", feature("EReference", "x", "eType=\"#/7/A\""))), "no classifier '#/7/A'");
    expectRefused(zoo(type("A", feature("EReference", "x", "eType=\"#//A #//A\""))), "more than one type");
    expectRefused(zoo(type("A", feature("EOther", "x", ""))), "'x' is neither an attribute nor a reference");
    expectRefused(zoo(type("A", feature("EAttribute", "x", "upperBound=\"many\""))),
                  "'upperBound' is no number");
    expectRefused(zoo(type("A", "", "abstract=\"maybe\"")), "'abstract' is neither true nor false");
    expectRefused(
        zoo(type("A", "", "eSuperTypes=\"#//E\"") + "<eClassifiers xsi:type=\"ecore:EEnum\" name=\"E\"/>"),
        "zoo.ecore:3: the supertype '#//E' is no class");
    expectRefused({{"a.ecore", model("")}, {"b.ecore", model("")}},
                  "b.ecore:1: the package 'urn:zoo' stands already at a.ecore:1");
}

TEST_F(Ecore, EntitiesAndOtherFilesAreNeverFollowed) {
    expectRefused({{"m.ecore", "<?xml version=\"1.0\"?>\n<!DOCTYPE a SYSTEM \"file:///etc/passwd\">\n<a/>"}},
                  "m.ecore:2: a document type is not accepted");
    expectRefused({{"m.ecore", "<!DOCTYPE a [<!ENTITY x SYSTEM \"/etc/passwd\">]><a>&x;</a>"}},
                  "a document type is not accepted");
    std::string laughs = "<!DOCTYPE a [<!ENTITY l0 \"ha\">";
    for (int i = 1; i < 40; ++i)
        laughs += "<!ENTITY l" + std::to_string(i) + " \"&l" + std::to_string(i - 1) + ";&l" +
                  std::to_string(i - 1) + ";\">";
    expectRefused({{"m.ecore", laughs + "]><a>&l39;</a>"}}, "a document type is not accepted");
    expectRefused({{"m.ecore", "<a>&x;</a>"}}, "m.ecore:1: undefined entity");
}

TEST_F(Ecore, HostileTextsDoNoHarm) {
    std::string deep;
    for (int i = 0; i < 200'000; ++i)
        deep += "<eSubpackages name='p'>";
    expectRefused(zoo(deep), "more than 200 deep");
    const std::string longName(1'000'000, 'n');
    import(zoo(type(longName, feature("EAttribute", longName, "") +
                                  feature("EReference", longName, "eType=\"#//" + longName + "\"")) +
               type("&#xD;&#x1F600;.", "")));
    EXPECT_EQ(metaNodes(), (Lines{longName, "\r\xF0\x9F\x98\x80."}));
    EXPECT_EQ(metaLinks(), Lines{longName + "." + longName + "." + longName});
}

}  // namespace
}  // namespace quorel::repository::testing
