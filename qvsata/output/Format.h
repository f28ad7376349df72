#pragma once

namespace qv::tool {

/// The output format of objects.
enum class Format { text, json, mof };

/// The output format of what is no object: text for people, or JSON.
enum class AnswerFormat { text, json };

}  // namespace qv::tool
