#include <gmock/gmock.h>

#include "qvsata/cim/StatusCodes.h"
#include "tests/qvsata/service/MofNamespace.h"

namespace qv::test {
namespace {

using namespace service;

using test::PathsOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr std::string_view plantMof = R"(
[Tagged: ToSubclass] class Part { [key] string Name; uint32 Weight; uint16 Codes[]; };
class Wheel : Part { uint16 Spokes; };
[Local] class Frame : Part { };
class Rider { [key] string Name; };
[Association: ToSubclass] class Joins { [key] Part ref Whole; [key] Part ref Piece; };
[Association: ToSubclass, Firm] class Bolts : Joins { uint16 Torque; };
[Association: ToSubclass] class Rides { [key] Rider ref Who; [key] Frame ref What; };
instance of Frame { Name = "f"; Weight = 9; };
instance of Wheel { Name = "w"; Weight = 2; Spokes = 32; };
instance of Rider { Name = "r"; };
instance of Bolts { Whole = "Frame.Name=\"f\""; Piece = "Wheel.Name=\"w\""; Torque = 7; };
instance of Rides { Who = "Rider.Name=\"r\""; What = "Frame.Name=\"f\""; };)";

Answer Asked(std::string_view wql) {
    static const auto plant = test::NamespaceOf(plantMof);
    return plant->Query(wql);
}

std::vector<std::string> Answered(std::string_view wql) {
    return PathsOf(Asked(wql));
}

std::string MessageOf(std::string_view wql) {
    return Asked(wql).message;
}

TEST(WqlAnswers, NamesAnUnknownPropertyAndItsPlace) {
    EXPECT_EQ(MessageOf("SELECT Name, Colour FROM Part"),
              "query: column 14: unknown property 'Colour' of class 'Part'");
    EXPECT_EQ(MessageOf("SELECT * FROM Part WHERE Name = 'x' OR Colour = 1"),
              "query: column 40: unknown property 'Colour' of class 'Part'");
    EXPECT_EQ(MessageOf("SELECT Spokes FROM Part"),
              "query: column 8: unknown property 'Spokes' of class 'Part'");
    EXPECT_EQ(MessageOf("SELECT __COLOUR FROM Part"),
              "query: column 8: unknown property '__COLOUR' of class 'Part'");
    EXPECT_EQ(Asked("SELECT Colour FROM Part").status, status::invalidQuery);
}

TEST(WqlAnswers, NamesAPropertyThatAConstantDoesNotFit) {
    const std::string select = "SELECT * FROM Part WHERE ";
    EXPECT_EQ(MessageOf(select + "Weight = 'x'"),
              "query: column 26: 'Weight' (uint32): expected a number");
    EXPECT_EQ(MessageOf(select + "Codes = 5"),
              "query: column 26: 'Codes' (uint16[]): queries do not compare arrays");
    EXPECT_EQ(MessageOf(select + "Weight LIKE 'x'"),
              "query: column 26: 'Weight' (uint32): LIKE applies to texts only");
    EXPECT_EQ(MessageOf(select + "Weight > NULL"),
              "query: column 26: 'Weight' (uint32): only = and <> apply to NULL");
}

TEST(WqlAnswers, RefusesAQueryOfAClassWithoutInstancesToo) {
    EXPECT_EQ(MessageOf("SELECT * FROM Joins WHERE Colour = 1"),
              "query: column 27: unknown property 'Colour' of class 'Joins'");
}

TEST(WqlAnswers, NamesAnUnknownClass) {
    EXPECT_EQ(MessageOf("SELECT * FROM Nowhere"), "unknown class 'Nowhere'");
    EXPECT_EQ(MessageOf("SELECT * FROM meta_class WHERE __THIS ISA 'Nowhere'"),
              "query: column 44: unknown class 'Nowhere'");
    EXPECT_EQ(MessageOf("ASSOCIATORS OF {Nowhere='f'}"), "unknown class 'Nowhere'");
    EXPECT_EQ(MessageOf("ASSOCIATORS OF {Frame='f'} WHERE AssocClass=Nowhere"),
              "unknown class 'Nowhere'");
    EXPECT_EQ(MessageOf("ASSOCIATORS OF {Frame='f'} WHERE ResultClass=Nowhere"),
              "unknown class 'Nowhere'");
    EXPECT_EQ(MessageOf("REFERENCES OF {Frame='f'} WHERE ResultClass=Nowhere"),
              "unknown class 'Nowhere'");
    EXPECT_EQ(Asked("ASSOCIATORS OF {Frame='f'} WHERE ResultClass=Nowhere").status,
              status::invalidClass);
}

TEST(WqlAnswers, NamesAnUnknownRole) {
    EXPECT_EQ(MessageOf("ASSOCIATORS OF {Frame='f'} WHERE Role=Top"), "unknown role 'Top'");
    EXPECT_EQ(MessageOf("ASSOCIATORS OF {Frame='f'} WHERE ResultRole=Torque"),
              "unknown role 'Torque'");
    EXPECT_EQ(MessageOf("ASSOCIATORS OF {Frame='f'} WHERE AssocClass=Joins Role=What"),
              "unknown role 'What' of class 'Joins'");
    EXPECT_EQ(MessageOf("REFERENCES OF {Frame='f'} WHERE Role=Top"), "unknown role 'Top'");
    EXPECT_EQ(Asked("REFERENCES OF {Frame='f'} WHERE Role=Top").status, status::invalidQuery);
}

TEST(WqlAnswers, NamesTheForeignNamespaceOfAPath) {
    const std::string reason = R"(the path is of the namespace 'root\cimv2', not of root\test)";
    EXPECT_EQ(MessageOf(R"(ASSOCIATORS OF {root\cimv2:Frame='f'})"), reason);
    EXPECT_EQ(MessageOf(R"(REFERENCES OF {\\SRV\root\cimv2:Frame='f'})"), reason);
    EXPECT_EQ(test::NamespaceOf(plantMof)->Get(R"(root\cimv2:Frame='f')").message, reason);
    EXPECT_EQ(test::NamespaceOf(plantMof)->GetInAnyOrder(R"(root\cimv2:Frame='f')").message,
              reason);
    EXPECT_THAT(Answered(R"(REFERENCES OF {\\SRV\ROOT\Test:Wheel='w'})"), testing::SizeIs(1));
}

TEST(WqlAnswers, ShowsTheSystemPropertiesThatAQuerySelects) {
    const Answer answer = Asked("SELECT __PATH, Spokes, __class FROM Wheel");
    ASSERT_EQ(answer.objects.size(), 1U);
    EXPECT_THAT(answer.objects[0]->ShownNames(), ElementsAre("__CLASS", "__PATH", "Spokes"));
    EXPECT_EQ(TextOf(*answer.objects[0], "__PATH"), R"(\\SRV\root\test:Wheel.Name="w")");
    EXPECT_THAT(Asked("SELECT * FROM Wheel").objects[0]->ShownNames(),
                ElementsAre("Name", "Weight", "Codes", "Spokes"));
}

TEST(WqlAnswers, SelectsClassDefinitionsWhole) {
    EXPECT_THAT(Answered("SELECT * FROM meta_class WHERE __THIS ISA 'Part'"),
                UnorderedElementsAre("Part", "Wheel", "Frame"));
    EXPECT_THAT(Answered("SELECT * FROM meta_class WHERE __SUPERCLASS = 'part'"),
                UnorderedElementsAre("Wheel", "Frame"));
    EXPECT_THAT(Answered("SELECT * FROM meta_class WHERE __SUPERCLASS IS NULL"),
                UnorderedElementsAre("Part", "Rider", "Joins", "Rides"));
    EXPECT_EQ(MessageOf("SELECT __CLASS FROM meta_class"),
              "query: column 8: a query for classes selects *");
    EXPECT_EQ(MessageOf("SELECT * FROM meta_class WHERE Name = 'x'"),
              "query: column 32: unknown property 'Name' of class 'meta_class'");
}

TEST(WqlAnswers, HasOnlyTheKeysWithKeysOnly) {
    const Answer parts = Asked("ASSOCIATORS OF {Frame='f'} WHERE KeysOnly ResultClass=Part");
    ASSERT_EQ(parts.objects.size(), 1U);
    EXPECT_THAT(parts.objects[0]->Names(), ElementsAre("Name"));
    EXPECT_EQ(TextOf(*parts.objects[0], "__RELPATH"), R"(Wheel.Name="w")");
    const Answer links = Asked("REFERENCES OF {Wheel='w'} WHERE KeysOnly");
    ASSERT_EQ(links.objects.size(), 1U);
    EXPECT_THAT(links.objects[0]->Names(), ElementsAre("Whole", "Piece"));
}

TEST(WqlAnswers, KeepsTheClassesThatHaveARequiredQualifier) {
    const std::string associators = "ASSOCIATORS OF {Frame='f'} WHERE ";
    EXPECT_THAT(Answered(associators + "RequiredQualifier=Tagged"),
                ElementsAre(R"(Wheel.Name="w")"));
    EXPECT_THAT(Answered(associators + "RequiredQualifier=Local"), IsEmpty());
    EXPECT_THAT(Answered(associators + "RequiredAssocQualifier=firm"),
                ElementsAre(R"(Wheel.Name="w")"));
    EXPECT_THAT(Answered(associators + "RequiredAssocQualifier=Association"), testing::SizeIs(2));
    EXPECT_THAT(Answered("REFERENCES OF {Frame='f'} WHERE RequiredQualifier=Firm"),
                testing::SizeIs(1));
}

TEST(WqlAnswers, FollowsTheDefinitionsWithSchemaOnly) {
    EXPECT_THAT(Answered("ASSOCIATORS OF {Frame} WHERE SchemaOnly"),
                UnorderedElementsAre("Part", "Rider"));
    EXPECT_THAT(Answered("ASSOCIATORS OF {Rider} WHERE SchemaOnly"), ElementsAre("Frame"));
    EXPECT_THAT(Answered("ASSOCIATORS OF {Frame} WHERE AssocClass=Joins SchemaOnly"),
                ElementsAre("Part"));
    EXPECT_THAT(Answered("ASSOCIATORS OF {Frame} WHERE SchemaOnly ResultRole=Who"),
                ElementsAre("Rider"));
    EXPECT_THAT(Answered("REFERENCES OF {Frame} WHERE SchemaOnly"),
                UnorderedElementsAre("Joins", "Bolts", "Rides"));
    EXPECT_THAT(Answered("REFERENCES OF {Rider} WHERE SchemaOnly"), ElementsAre("Rides"));
    EXPECT_THAT(Answered("REFERENCES OF {Wheel} WHERE SchemaOnly RequiredQualifier=Firm"),
                ElementsAre("Bolts"));
}

TEST(WqlAnswers, TellsTheQueriesOfAClassFromThoseOfAnInstance) {
    EXPECT_EQ(MessageOf("ASSOCIATORS OF {Frame='f'} WHERE SchemaOnly"),
              "SchemaOnly needs the path of a class");
    EXPECT_EQ(MessageOf("REFERENCES OF {Frame}"),
              "'Frame' is a class: give the path of an instance, or SchemaOnly");
}

}  // namespace
}  // namespace qv::test
