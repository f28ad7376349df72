#pragma once

#include <string>

#include "qvsata/explain/ExplanationText.h"
#include "qvsata/report/Html.h"
#include "qvsata/report/Place.h"

namespace qv::report {

/// Returns what becomes of a row, and why: "not published: InterfaceType is ...".
std::string OutcomeOf(const explain::Verdict& verdict);

/// Writes what follows from a row; nothing if nothing does.
void WriteNotes(Html& html, const explain::Verdict& verdict);

/// Writes the rows that are not published or not used, class by class, with the reasons, and the
/// classes that could not be read. Of the rows of a class it writes the first ones and counts the
/// others.
void WriteLeftOut(Html& html, const Place& place, const explain::Explanation& explanation);

}  // namespace qv::report
