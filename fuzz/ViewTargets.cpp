#include <algorithm>
#include <array>

#include "fuzz/Chooser.h"
#include "fuzz/Publishing.h"
#include "nlohmann/json.hpp"
#include "qvsata/view/AssociationGraph.h"
#include "qvsata/view/DiskTable.h"
#include "qvsata/view/OsDiskJson.h"
#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/Topology.h"
#include "qvsata/view/text/Characters.h"
#include "qvsata/view/text/Columns.h"
#include "qvsata/view/text/Wrapping.h"

namespace qv::fuzz {
namespace {

using service::CimValue;

constexpr std::array names{
    "Name",
    "ElementName",
    "DeviceID",
    "OperationalStatus",
    "StatusDescriptions",
    "Model",
    "SerialNumber",
    "FirmwareRevision",
    "Size",
    "Index",
    "Bootable",
    "BootPartition",
    "PrimaryPartition",
    "VersionString",
    "GroupOperationalStatus",
    "Description",
    "InstanceID",
};

constexpr std::array roles{"Antecedent",     "Dependent", "AvailableSAP",
                           "ManagedElement", "Target",    "Initiator"};

const std::vector<CimValue>& FreeValues() {
    static const std::vector<CimValue> values = {
        {},
        "a",
        "A&1",
        "A&10",
        "IDECHANNEL with ID: A&1",
        "A&1 connected to A&10",
        "  \x1b[31m\r\n\t",
        "\xE2\x80\xAE\xE7\xA3\x81\xE7\x9B\xA4\xCC\x81",
        "500105249280",
        "99999999999999999999",
        "-1",
        "2020565357",
        std::string(200, 'w'),
        true,
        std::int64_t{2},
        std::int64_t{5},
        std::int64_t{-2147483648LL},
        std::vector<std::int64_t>{6, 2},
        std::vector<std::int64_t>{},
        std::vector<std::string>{"Pred Fail"},
        std::vector<std::string>{},
    };
    return values;
}

view::PublishedObject FreeObject(Chooser& chooser, const std::vector<std::string>& paths) {
    view::PublishedObject object;
    object.className = chooser.OneOf(view::topologyClasses);
    object.path = object.className + ".K=\"" + std::to_string(chooser.Below(4)) + '"';
    for (std::size_t count = chooser.Below(8); count > 0; --count) {
        object.values[chooser.OneOf(names)] = chooser.OneOf(FreeValues());
    }
    for (std::size_t count = chooser.Below(4); count > 0 && !paths.empty(); --count) {
        object.references.emplace_back(chooser.OneOf(roles), chooser.OneOf(paths));
    }
    return object;
}

bool IsBlank(char character) {
    return character == ' ' || character == '\n';
}

std::string WithoutBlanks(std::string text) {
    std::erase_if(text, IsBlank);
    return text;
}

}  // namespace

void RunView(Bytes input) {
    constexpr std::size_t mostObjects = 32;
    Chooser chooser(input);
    const std::size_t columns = chooser.Below(160);
    view::PublishedHost host;
    std::vector<std::string> paths;
    while (!chooser.AtEnd() && paths.size() < mostObjects) {
        view::PublishedObject object = FreeObject(chooser, paths);
        paths.push_back(object.path);
        host[object.className].push_back(std::move(object));
    }
    CheckViews(host, columns);
}

void RunTerminalText(Bytes input) {
    Chooser chooser(input);
    const std::size_t columns = chooser.Below(200);
    const std::string text(chooser.Rest());
    const std::string printable = view::Printable(text);
    Require(view::Printable(printable) == printable, "printable text is left as it is");
    Require(nlohmann::json::parse(nlohmann::json(printable).dump()) == printable,
            "printable text is UTF-8");
    Require(view::WidthOf(printable) <= printable.size(),
            "no character takes more columns than bytes");
    const std::string wrapped = view::PlainText(view::Wrapped({{printable}}, columns));
    Require(WithoutBlanks(wrapped) == WithoutBlanks(printable), "wrapping adds blanks only");
    const std::string quoted = view::QuotedForGraph(text);
    Require(quoted.size() >= 2 && quoted.front() == '"' && quoted.back() == '"',
            "a text for a graph is in quotes");
    view::SerialNumberText(text);

    view::OsDisk disk;
    disk.model = disk.serialNumber = disk.attachmentName = printable;
    const std::string table = view::PlainText(view::DisksAsText({disk, disk}, columns));
    Require(table.ends_with('\n'), "a table ends with its last line");
}

}  // namespace qv::fuzz
