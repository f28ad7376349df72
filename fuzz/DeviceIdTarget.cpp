#include <algorithm>

#include "fuzz/Oracle.h"
#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/text/Characters.h"
#include "source/InstanceRecord.h"
#include "source/SourceRules.h"
#include "source/Text.h"

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
    Require(IsInitiator(id) == (IsChannel(id) && !IsPortController(id)),
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

}  // namespace

void RunDeviceId(Bytes input) {
    const std::string id(TextOf(input));
    CheckText(id);
    CheckRules(id);
    CheckSerialNumber(id);
}

}  // namespace qv::fuzz
