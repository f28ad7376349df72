#pragma once

namespace qv::tool {

/// The output format of objects.
enum class Format { text, json, mof };

}  // namespace qv::tool
