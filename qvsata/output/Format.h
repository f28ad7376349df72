#pragma once

namespace qv::tool {

/// How objects are written.
enum class Format { text, json, mof };

}  // namespace qv::tool
