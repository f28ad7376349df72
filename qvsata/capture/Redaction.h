#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qvsata/capture/Reach.h"
#include "qvsata/capture/RedactionKey.h"
#include "qvsata/capture/Secrets.h"
#include "qvsata/recorded/RecordedHost.h"

namespace qv::capture {

/// The replacements of all secrets of a recording. The same text has the same replacement, of the
/// same length and with letters and digits at the same places; different texts have different ones;
/// a text that is part of another stays part of it. A number in decimal digits without a sign is
/// replaced by one, which with its sign is within 32 bits if the number is. Without the key a
/// replacement says nothing of the text.
class Redaction {
public:
    /// @param key a text has the same replacement in all recordings with the same key and attempt,
    /// unless another text of the recording is or has it
    /// @param attempt each one selects other replacements for all texts
    Redaction(const service::RecordedHost& host, const RedactionKey& key, unsigned attempt);

    /// Returns a text with all secrets replaced that reach into any text.
    std::string TextOf(const std::string& text) const;

    /// Returns the recording with all secrets replaced, and without its description.
    service::RecordedHost Applied(const service::RecordedHost& host) const;

    /// Returns whether different secrets have different replacements.
    bool IsDistinct() const { return isDistinct_; }

    /// Returns whether all secrets reach into any text.
    bool IsComplete() const;

    /// Returns all secrets, also as they are spelled without or with other signs, and their reach.
    const std::vector<std::pair<std::wstring, Reach>>& Reaches() const { return reaches_; }

private:
    /// A character of a pattern, and the cell with its replacement.
    struct Glyph {
        wchar_t character;  ///< folded
        std::size_t cell;   ///< noCell: it stays
    };
    using Glyphs = std::vector<Glyph>;

    /// A part comes before the texts that have it.
    struct ShorterFirst {
        bool operator()(const std::wstring& one, const std::wstring& other) const {
            return one.size() != other.size() ? one.size() < other.size() : one < other;
        }
    };

    /// A form of a secret in a text.
    struct Pattern {
        Glyphs glyphs;
        bool isHex = false;   ///< two digits for each character
        bool isWord = false;  ///< only between other characters than letters and digits
        std::size_t Length() const { return glyphs.size() * (isHex ? 2 : 1); }
    };

    static constexpr std::size_t noCell = static_cast<std::size_t>(-1);

    static Glyphs SwappedPairs(Glyphs glyphs, bool isShifted);
    static bool Matches(const Pattern& pattern, std::wstring_view folded, std::size_t place);

    Glyphs MakeGlyphs(std::wstring_view text);
    void AddPatterns(const Secret& secret, Reach reach, const KeptTexts& kept);
    void AddSpellings(const Glyphs& plain, const KeptTexts& kept);
    void UniteParts();
    void ChooseReplacements(const RedactionKey& key, unsigned attempt);
    std::wstring ReplacementOf(const Glyphs& glyphs) const;
    std::size_t Root(std::size_t cell) const;
    std::wstring Replaced(std::wstring_view text) const;
    std::wstring ReplacedMatch(const Pattern& pattern, std::wstring_view original) const;
    std::wstring ReplacedPiece(std::wstring_view text) const;
    std::wstring ReplacedName(std::wstring_view name) const;
    std::string TextOfProperty(std::string_view property, const std::string& text) const;
    std::string NameOf(const std::string& name) const;

    std::vector<std::pair<std::wstring, Reach>> reaches_;  ///< by secret
    std::map<std::wstring, Glyphs, ShorterFirst> whole_;   ///< by folded secret
    std::vector<Pattern> patterns_;                        ///< the longest first
    std::vector<std::size_t> cells_;                       ///< each cell's parent, no later one
    std::vector<wchar_t> replacements_;                    ///< by cell, folded; 0: to be chosen
    bool isDistinct_ = true;
};

}  // namespace qv::capture
