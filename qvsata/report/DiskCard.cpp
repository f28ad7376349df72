#include "qvsata/report/DiskCard.h"

#include "qvsata/report/Standing.h"
#include "qvsata/report/VerdictList.h"
#include "qvsata/view/SerialNumber.h"
#include "qvsata/view/SizeText.h"
#include "qvsata/view/text/Columns.h"

namespace qv::report {
namespace {

std::string SizeOf(const view::OsDisk& disk) {
    return disk.size ? view::GigabytesText(disk.size) + " (" + view::GibibytesText(disk.size) + ')'
                     : "-";
}

std::string SerialNumberOf(const view::OsDisk& disk) {
    return view::SerialNumberSpan("", disk.serialNumber, disk.serialNumberIsRead).text;
}

std::string AttachmentOf(const view::OsDisk& disk) {
    if (!disk.attachmentName.empty()) {
        return disk.attachmentName;
    }
    return disk.attachmentIsRead ? "-" : "not readable";
}

std::string PredictionOf(const view::OsDisk& disk) {
    if (!disk.failureIsPredicted) {
        return "not known";
    }
    if (*disk.failureIsPredicted) {
        return "yes";
    }
    return disk.hasPrediction ? "no" : "no prediction names it";
}

std::string PublicationOf(const view::OsDisk& disk, const explain::Verdict* verdict) {
    if (verdict != nullptr && verdict->outcome != explain::Outcome::published) {
        return OutcomeOf(*verdict);
    }
    if (!disk.whyUnpublished.empty()) {
        return "no: " + disk.whyUnpublished;
    }
    return verdict == nullptr ? "not known" : "yes";
}

void WriteFact(Html& html, std::string_view name, std::string_view value) {
    html.Line("dt", name);
    html.Inline("dd", value);
}

}  // namespace

void WriteBadge(Html& html, const view::Health& health) {
    html.Inline("span", health.word,
                {{"class", "badge " + std::string(ClassOf(SeverityOf(health)))}});
}

void WriteDiskCard(Html& html, const Place& place, const std::string& id, const view::OsDisk& disk,
                   const explain::Verdict* verdict) {
    const auto card = html.In(
        "article",
        {{"class", std::string(ClassOf(SeverityOf(HealthOf(disk))))}, {"aria-labelledby", id}});
    {
        const auto heading = html.In(HeadingOf(place.level + 1), {{"id", id}});
        html.Inline("bdi", view::DiskName(disk.number, disk.model));
    }
    {
        const auto line = html.In("p");
        WriteBadge(html, HealthOf(disk));
    }
    {
        const auto facts = html.In("dl");
        WriteFact(html, "Size", SizeOf(disk));
        WriteFact(html, "Serial number", SerialNumberOf(disk));
        WriteFact(html, "Firmware", view::OrDash(disk.firmware));
        WriteFact(html, "Bus", view::OrDash(disk.bus));
        WriteFact(html, "Attached to", AttachmentOf(disk));
        WriteFact(html, "Failure predicted", PredictionOf(disk));
        WriteFact(html, "Device ID", view::OrDash(disk.deviceId));
        WriteFact(html, "Published", PublicationOf(disk, verdict));
    }
    if (verdict != nullptr) {
        WriteNotes(html, *verdict);
    }
}

void WriteDiskLine(Html& html, const view::OsDisk& disk) {
    const auto item = html.In("li");
    WriteBadge(html, HealthOf(disk));
    html.Text(" ");
    html.Inline("bdi", view::DiskName(disk.number, disk.model));
    html.Text(", " + view::GigabytesText(disk.size) + ", serial number " + SerialNumberOf(disk) +
              (disk.whyUnpublished.empty() ? "" : ", not published: " + disk.whyUnpublished));
}

}  // namespace qv::report
