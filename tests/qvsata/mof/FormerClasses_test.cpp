// Class definitions that were once shipped and that the management service would have refused:
// concrete CIM classes under the product's own. Each still fails here, with its position.

#include <gmock/gmock.h>

#include "tests/qvsata/mof/ErrorOf.h"

namespace qv::test {
namespace {

using namespace service;

TEST(FormerClasses, AskedForRecoveryTooLate) {
    EXPECT_EQ(ErrorOf("#pragma namespace(\"\\\\\\\\.\\\\root\\\\QVQ\")\n#pragma autorecover\n"),
              "a.mof:2:9: pragma autorecover belongs on the first line of the file");
}

TEST(FormerClasses, HadAnAbstractComputerSystemBelowAConcreteOne) {
    EXPECT_EQ(ErrorOf(R"([Abstract] class CIM_System {
    [Key] string CreationClassName; [Key] string Name; string NameFormat; };
[Description("System that can compute.")]
class CIM_ComputerSystem : CIM_System { [Override("NameFormat")] string NameFormat; };
[Abstract, Description("Computer system whose hardware is published.")]
class QV_ComputerSystem : CIM_ComputerSystem { };)"),
              "a.mof:5:2: class QV_ComputerSystem is abstract below the concrete class "
              "CIM_ComputerSystem (WBEM_E_CANNOT_BE_ABSTRACT 0x80041065)");
}

TEST(FormerClasses, HadAnAbstractCollectionBelowAConcreteOne) {
    EXPECT_EQ(ErrorOf(R"([Description("Collection that belongs to one system.")]
class CIM_SystemSpecificCollection { [Key] string InstanceID; };
[Abstract, Description("Collection with a consolidated status.")]
class QV_GroupSystemSpecificCollection : CIM_SystemSpecificCollection { };)"),
              "a.mof:3:2: class QV_GroupSystemSpecificCollection is abstract below the concrete "
              "class CIM_SystemSpecificCollection (WBEM_E_CANNOT_BE_ABSTRACT 0x80041065)");
}

TEST(FormerClasses, HadAnAbstractIndicationBelowTheEventClass) {
    EXPECT_EQ(
        ErrorOf(R"([Indication: ToSubclass, Abstract, Description("Notice.")]
class CIM_Indication : __ExtrinsicEvent { string IndicationIdentifier; };)"),
        "a.mof:1:26: class CIM_Indication is abstract below the event class __ExtrinsicEvent");
}

TEST(FormerClasses, HadAnAbstractProcessIndicationBelowThat) {
    EXPECT_EQ(ErrorOf(R"([Indication: ToSubclass] class CIM_Indication : __ExtrinsicEvent { };
[Indication: ToSubclass, Abstract, Description("Notice of something else.")]
class CIM_ProcessIndication : CIM_Indication { };)"),
              "a.mof:2:26: class CIM_ProcessIndication is abstract below the concrete class "
              "CIM_Indication (WBEM_E_CANNOT_BE_ABSTRACT 0x80041065)");
}

TEST(FormerClasses, HadDynamicClassesBelowConcreteOnes) {
    EXPECT_EQ(ErrorOf(R"([Description("Position of a physical element.")]
class CIM_Location { [Key] string Name; [Key] string PhysicalPosition; string Address; };
[dynamic: ToInstance, provider("QVWMISATA_InstProv"): ToInstance]
class QV_SATADiskLocation : CIM_Location { };)"),
              "a.mof:4:7: class QV_SATADiskLocation is dynamic below the concrete static class "
              "CIM_Location, whose instances it cannot add to");
}

TEST(FormerClasses, HadDynamicAssociationsBelowConcreteOnes) {
    EXPECT_EQ(
        ErrorOf(R"([Association: ToInstance ToSubclass]
class CIM_MemberOfCollection { [Key] CIM_MemberOfCollection ref Collection;
                               [Key] CIM_MemberOfCollection ref Member; };
[Association: ToInstance ToSubclass,
 dynamic: ToInstance, provider("QVWMISATA_InstProv"): ToInstance]
class QV_SATAStorageCollectionSATADiskDrive : CIM_MemberOfCollection { };)"),
        "a.mof:6:7: class QV_SATAStorageCollectionSATADiskDrive is dynamic below the concrete "
        "static class CIM_MemberOfCollection, whose instances it cannot add to");
}

}  // namespace
}  // namespace qv::test
