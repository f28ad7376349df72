#pragma once

#include <string>
#include <vector>

#include "qvsata/capture/Secrets.h"
#include "qvsata/recorded/RecordedHost.h"

namespace qv::capture {

/// Where a secret is replaced.
enum class Reach {
    everywhere,  ///< also as a part of a word, and as hexadecimal codes
    words,       ///< as a whole word of any text
    places,      ///< only where nothing else can stand: the whole text of a property, a server
};

/// The texts of a recording that stay: the form of the file with the names of classes and
/// properties, and the models, makers, names and IDs of devices.
class KeptTexts {
public:
    explicit KeptTexts(const service::RecordedHost& host);

    /// Returns where a secret can be replaced without changing a text that stays. A serial number
    /// that is part of a model is replaced there, too.
    Reach ReachOf(const Secret& secret) const;

private:
    std::wstring form_;               ///< in lower case
    std::vector<std::wstring> rows_;  ///< in lower case
};

}  // namespace qv::capture
