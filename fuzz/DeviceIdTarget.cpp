#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

#include "fuzz/Chooser.h"
#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/text/Characters.h"
#include "source/InstanceRecord.h"
#include "source/SourceRules.h"
#include "source/Text.h"
#include "tests/support/ScriptedHost.h"

namespace qv::fuzz {
namespace {

void CheckText(const std::string& text) {
    const std::string encoded = EncodeDeviceId(text);
    Require(encoded.size() == text.size() && encoded.find('\\') == std::string::npos,
            "an encoded ID has ampersands for backslashes");
    Require(StripBackslashes(encoded) == encoded, "an encoded ID has no backslashes to strip");
    Require(StripBackslashes(text).size() ==
                text.size() - static_cast<std::size_t>(std::ranges::count(text, '\\')),
            "only backslashes are stripped");
    Require(EqualsIgnoringCase(text, FoldCase(text)) && EqualsIgnoringCase(ToUpper(text), text),
            "letter case does not matter");
    const auto pieces = SplitList(text);
    Require(JoinList(pieces) == text, "a list is its pieces, joined");
    Require(std::ranges::none_of(pieces,
                                 [](const std::string& piece) {
                                     return piece.find(listSeparator) != std::string::npos;
                                 }),
            "no piece contains a separator");
}

void CheckRules(const std::string& id) {
    const bool hasChannel = id.find("IDECHANNEL") != std::string::npos;
    const bool hasRevision = id.find("&REV_") != std::string::npos;
    Require(IsInitiator(id) == (hasChannel && !hasRevision),
            "an initiator is a channel that is no port controller");
    for (const std::string_view part : {RevisionOf(id), FirstSegmentOf(id), DeviceNumberOf(id)}) {
        Require(id.find(part) != std::string::npos, "a part of an ID occurs in it");
    }
    if (IsChannel(id)) {
        Require(ChannelLabel(id).starts_with("IDECHANNEL"), "a channel's label names the channel");
    }
}

void CheckSerialNumber(const std::string& raw) {
    const auto decoded = view::DecodedSerialNumber(raw);
    if (decoded) {
        Require(view::Printable(*decoded) == *decoded, "a decoded serial number is printable");
        Require(view::SerialNumberText(raw).ends_with(')'), "a decoded serial number is shown");
    }
}

using test::ScriptedRow;

// Finds disks and rows by each of the IDs, as a disk's and as another row's.
void CheckLookUps(const std::vector<std::string>& ids) {
    platform::Rows media;
    std::ranges::transform(ids, std::back_inserter(media), [](const std::string& id) {
        return std::make_shared<ScriptedRow>(test::Properties{{"Tag", id}});
    });
    const MediaOfDisks mediaOfDisks(media);
    const PredictedDisks predictedDisks(ids);
    for (const std::string& id : ids) {
        const ScriptedRow disk({{"DeviceID", id}});
        Require(mediaOfDisks.Of(disk) == FindMediaOfDisk(disk, media),
                "a disk's media row is the one that a plain loop finds");
        KeyTable::Places predicted;
        for (std::size_t place = 0; place < ids.size(); ++place) {
            if (IsPredictionOf(ToUpper(id), ToUpper(ids[place]))) {
                predicted.push_back(place);
            }
        }
        Require(predictedDisks.Of(ScriptedRow({{"InstanceName", id}})) == predicted,
                "a prediction belongs to the disks that a plain loop finds");
    }
}

std::vector<std::string> Lines(Chooser chooser) {
    // The plain loops are not what the target tests.
    constexpr std::size_t mostLines = 16;
    std::vector<std::string> lines;
    while (!chooser.AtEnd() && lines.size() < mostLines) {
        lines.push_back(chooser.Line());
    }
    return lines;
}

}  // namespace

// The whole input is an ID, and so is each of its lines.
void RunDeviceId(Bytes input) {
    const std::string id(TextOf(input));
    CheckText(id);
    CheckRules(id);
    CheckSerialNumber(id);
    CheckLookUps(Lines(Chooser(input)));
}

}  // namespace qv::fuzz
