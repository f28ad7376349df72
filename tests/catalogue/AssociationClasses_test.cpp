// The instances of each association class on one host: endpoints, order and roles.
#include "tests/support/AssociatedHost.h"

namespace qv::test {
namespace {

class AssociationClassesTest : public testing::Test, protected AssociatedHost {
protected:
    const std::string controllerPackage = "QV_SATAPortControllerPhysicalPackage";
    const std::string controllerLocation = "QV_SATAControllerLocation";
    const std::string diskPackage = "QV_SATADiskPhysicalPackage";
    const std::string diskLocation = "QV_SATADiskLocation";
    const std::string portAKey = channelAKey + " connected to " + ideKey;
    const std::string portBKey = channelBKey + " connected to " + ideKey;
    const std::string target1Key = disk1Key + " connected to " + channelAKey;
    const std::string target2Key = disk2Key + " connected to " + ahciKey;
    const PropertyEntry currentAndInstalled = Numbers("ElementSoftwareStatus", "2*-*6");

    // Returns the records that associate a controller's software class with its owner. The identity
    // of the channel's driver belongs to no controller.
    RecordList OfSoftware(const std::string& association, const std::string& software) {
        return WithAdded(Associated(association, {"Antecedent", "Dependent"},
                                    {{SoftwarePath(software, ahciKey), ControllerPath(ahciKey)},
                                     {SoftwarePath(software, ideKey), ControllerPath(ideKey)}}),
                         currentAndInstalled);
    }
};

TEST_F(AssociationClassesTest, JoinTheHostWithEachController) {
    const char* name = "QV_WinComputerSystemSATAPortController";
    EXPECT_EQ(All(name), Associated(name, {"GroupComponent", "PartComponent"},
                                    {{systemPath, ControllerPath(ahciKey)},
                                     {systemPath, ControllerPath(ideKey)}}));
}

TEST_F(AssociationClassesTest, JoinAControllerWithEachOfItsPorts) {
    const char* name = "QV_SATAPortControllerSATALogicalPort";
    EXPECT_EQ(All(name), Associated(name, {"Antecedent", "Dependent"},
                                    {{ControllerPath(ideKey), PortPath(portAKey)},
                                     {ControllerPath(ideKey), PortPath(portBKey)}}));
}

TEST_F(AssociationClassesTest, JoinAControllersPackageWithItsLocation) {
    const char* name = "QV_SATAPortControllerPhysicalPackageSATAControllerLocation";
    EXPECT_EQ(
        All(name),
        Associated(
            name, {"Element", "PhysicalLocation"},
            {{PackagePath(controllerPackage, ahciKey),
              LocationPath(controllerLocation, ahciKey, "the caption with Device ID: 2922")},
             {PackagePath(controllerPackage, ideKey),
              LocationPath(controllerLocation, ideKey, "the caption with Device ID: 7010")}}));
}

TEST_F(AssociationClassesTest, JoinAControllersProductWithItsPackage) {
    const char* name = "QV_SATAPortControllerProductSATAPortControllerPhysicalPackage";
    EXPECT_EQ(All(name),
              Associated(name, {"GroupComponent", "PartComponent"},
                         {{ProductPath(ahciKey, "02"), PackagePath(controllerPackage, ahciKey)},
                          {ProductPath(ideKey, "01"), PackagePath(controllerPackage, ideKey)}}));
}

TEST_F(AssociationClassesTest, JoinAControllersProductWithTheController) {
    const char* name = "QV_SATAPortControllerProductSATAPortController";
    EXPECT_EQ(All(name), Associated(name, {"GroupComponent", "PartComponent"},
                                    {{ProductPath(ahciKey, "02"), ControllerPath(ahciKey)},
                                     {ProductPath(ideKey, "01"), ControllerPath(ideKey)}}));
}

TEST_F(AssociationClassesTest, JoinAControllersPackageWithTheController) {
    const char* name = "QV_SATAPortControllerPhysicalPackageSATAPortController";
    EXPECT_EQ(All(name),
              Associated(name, {"Antecedent", "Dependent"},
                         {{PackagePath(controllerPackage, ahciKey), ControllerPath(ahciKey)},
                          {PackagePath(controllerPackage, ideKey), ControllerPath(ideKey)}}));
}

TEST_F(AssociationClassesTest, JoinTheHostWithEachExtent) {
    const char* name = "QV_WinComputerSystemSATAStorageExtent";
    EXPECT_EQ(All(name), Associated(name, {"GroupComponent", "PartComponent"},
                                    {{systemPath, ExtentPath(disk1Key)},
                                     {systemPath, ExtentPath(disk2Key)},
                                     {systemPath, ExtentPath(disk3Key)}}));
}

TEST_F(AssociationClassesTest, JoinTheHostWithEachDisk) {
    const char* name = "QV_WinComputerSystemSATADiskDrive";
    EXPECT_EQ(All(name), Associated(name, {"GroupComponent", "PartComponent"},
                                    {{systemPath, DiskPath(disk1Key)},
                                     {systemPath, DiskPath(disk2Key)},
                                     {systemPath, DiskPath(disk3Key)}}));
}

TEST_F(AssociationClassesTest, JoinTheHostWithEachPort) {
    const char* name = "QV_WinComputerSystemSATALogicalPort";
    EXPECT_EQ(All(name),
              Associated(name, {"GroupComponent", "PartComponent"},
                         {{systemPath, PortPath(portAKey)}, {systemPath, PortPath(portBKey)}}));
}

TEST_F(AssociationClassesTest, JoinADiskWithItsExtent) {
    const char* name = "QV_SATADiskDriveStorageExtent";
    EXPECT_EQ(All(name), Associated(name, {"Antecedent", "Dependent"},
                                    {{DiskPath(disk1Key), ExtentPath(disk1Key)},
                                     {DiskPath(disk2Key), ExtentPath(disk2Key)},
                                     {DiskPath(disk3Key), ExtentPath(disk3Key)}}));
}

TEST_F(AssociationClassesTest, JoinADisksPackageWithTheDisk) {
    const char* name = "QV_SATADiskPhysicalPackageSATADiskDrive";
    EXPECT_EQ(All(name), Associated(name, {"Antecedent", "Dependent"},
                                    {{PackagePath(diskPackage, disk1Key), DiskPath(disk1Key)},
                                     {PackagePath(diskPackage, disk2Key), DiskPath(disk2Key)},
                                     {PackagePath(diskPackage, disk3Key), DiskPath(disk3Key)}}));
}

TEST_F(AssociationClassesTest, JoinADisksPackageWithItsLocation) {
    const char* name = "QV_SATADiskPhysicalPackageSATADiskLocation";
    EXPECT_EQ(All(name), Associated(name, {"Element", "PhysicalLocation"},
                                    {{PackagePath(diskPackage, disk1Key),
                                      LocationPath(diskLocation, disk1Key, "the caption")},
                                     {PackagePath(diskPackage, disk2Key),
                                      LocationPath(diskLocation, disk2Key, "the caption")},
                                     {PackagePath(diskPackage, disk3Key),
                                      LocationPath(diskLocation, disk3Key, "")}}));
}

TEST_F(AssociationClassesTest, JoinADisksFirmwareWithTheDisk) {
    const char* name = "QV_SATADiskDriveDiskDriveFW";
    const auto firmware = [](const std::string& key) {
        return "QV_SATADiskDriveFW." + KeyText("InstanceID", key);
    };
    EXPECT_EQ(All(name), WithAdded(Associated(name, {"Antecedent", "Dependent"},
                                              {{firmware(disk1Key), DiskPath(disk1Key)},
                                               {firmware(disk2Key), DiskPath(disk2Key)},
                                               {firmware(disk3Key), DiskPath(disk3Key)}}),
                                   currentAndInstalled));
}

TEST_F(AssociationClassesTest, JoinATargetWithItsDisk) {
    const char* name = "QV_TSATAProtocolEndpointSATADiskDrive";
    EXPECT_EQ(All(name), Associated(name, {"AvailableSAP", "ManagedElement"},
                                    {{TargetPath(target1Key), DiskPath(disk1Key)},
                                     {TargetPath(target2Key), DiskPath(disk2Key)}}));
}

TEST_F(AssociationClassesTest, JoinAPortWithTheInitiatorOfItsChannel) {
    const char* name = "QV_SATALogicalPortISATAProtocolEndpoint";
    EXPECT_EQ(All(name), Associated(name, {"Antecedent", "Dependent"},
                                    {{PortPath(portAKey), InitiatorPath(channelAKey)},
                                     {PortPath(portBKey), InitiatorPath(channelBKey)}}));
}

TEST_F(AssociationClassesTest, JoinTheInitiatorTargetAndExtentOfADiskOnAChannel) {
    const char* name = "QV_SATAInitiatorTargetLogicalUnitPath";
    EXPECT_EQ(All(name), WithAdded(Associated(name, {"Initiator", "Target", "LogicalUnit"},
                                              {{InitiatorPath(channelAKey), TargetPath(target1Key),
                                                ExtentPath(disk1Key)}}),
                                   Number("State", "2")));
}

TEST_F(AssociationClassesTest, JoinTheCollectionWithEachDisk) {
    const char* name = "QV_SATAStorageCollectionSATADiskDrive";
    EXPECT_EQ(All(name), Associated(name, {"Collection", "Member"},
                                    {{collectionPath, DiskPath(disk1Key)},
                                     {collectionPath, DiskPath(disk2Key)},
                                     {collectionPath, DiskPath(disk3Key)}}));
}

TEST_F(AssociationClassesTest, JoinTheHostWithTheCollection) {
    const char* name = "QV_SATAHostedCollection";
    EXPECT_EQ(All(name),
              Associated(name, {"Antecedent", "Dependent"}, {{systemPath, collectionPath}}));
}

TEST_F(AssociationClassesTest, JoinAControllersFirmwareWithTheController) {
    const char* name = "QV_SATAPortControllerFWSATAPortController";
    EXPECT_EQ(All(name), OfSoftware(name, "QV_SATAPortControllerFW"));
}

TEST_F(AssociationClassesTest, JoinAControllersDriverWithTheController) {
    const char* name = "QV_SATAPortControllerDriverSATAPortController";
    EXPECT_EQ(All(name), OfSoftware(name, "QV_SATAPortControllerDriver"));
}

TEST_F(AssociationClassesTest, JoinAControllersBiosWithTheController) {
    const char* name = "QV_SATAPortControllerBIOSSATAPortController";
    EXPECT_EQ(All(name), OfSoftware(name, "QV_SATAPortControllerBIOS"));
}

}  // namespace
}  // namespace qv::test
