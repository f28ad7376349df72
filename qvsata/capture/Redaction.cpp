#include "qvsata/capture/Redaction.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <set>
#include <utility>

#include "qvsata/capture/Alphabet.h"
#include "qvsata/capture/MapTexts.h"
#include "qvsata/capture/Permuted.h"
#include "qvsata/cim/Utf8.h"

namespace qv::capture {
namespace {

using service::RecordedHost;
using service::ToUtf8;
using service::ToWide;

/// Shorter texts are part of others by chance.
constexpr std::size_t shortestPart = 4;

/// How a number is also written: in groups with a sign between them.
struct Spelling {
    std::size_t length;  ///< hexadecimal digits; 0: any text with a letter, without its signs
    std::size_t group;
    wchar_t sign;
};

constexpr std::array<Spelling, 5> spellings{{
    {0, 0, L'\0'},
    {8, 4, L'-'},   // a volume: 1A2B-3C4D
    {12, 2, L':'},  // a network card
    {12, 2, L'-'},
    {12, 4, L'.'},
}};

/// Returns the character with a code of two hexadecimal digits, folded ones; 0 for anything else.
wchar_t CharacterOf(std::wstring_view digits) {
    constexpr std::wstring_view all = L"0123456789abcdef";
    const std::size_t high = all.find(Folded(digits[0]));
    const std::size_t low = all.find(Folded(digits[1]));
    return high == all.npos || low == all.npos ? L'\0' : static_cast<wchar_t>(high * 16 + low);
}

std::wstring DigitsOf(wchar_t character, bool isUpper) {
    const std::wstring_view all = isUpper ? L"0123456789ABCDEF" : L"0123456789abcdef";
    const auto code = static_cast<unsigned>(character);
    return {all[code / 16 % 16], all[code % 16]};
}

/// Returns whether a text is a number without zeros before it, and not above `greatest`, which has
/// ten digits.
bool IsNumberUpTo(std::wstring_view greatest, std::wstring_view text) {
    return !text.empty() && text.find_first_not_of(L"0123456789") == text.npos &&
           (text.size() == 1 || text.front() != L'0') &&
           (text.size() < greatest.size() || (text.size() == greatest.size() && text <= greatest));
}

/// Returns whether a text is that of a number in a row: the digits of a negative one may be 2^31.
bool IsNumber(std::wstring_view text) {
    return IsNumberUpTo(L"2147483648", text);
}

/// Returns whether a text is that of a number in a row, with either sign.
bool IsNumberOfEitherSign(std::wstring_view text) {
    return IsNumberUpTo(L"2147483647", text);
}

}  // namespace

Redaction::Redaction(const RecordedHost& host, const RedactionKey& key, unsigned attempt) {
    const KeptTexts kept(host);
    std::vector<Secret> secrets = SecretsOf(host);
    std::ranges::sort(secrets, ShorterFirst(),
                      [](const Secret& secret) { return Folded(secret.text); });
    for (const Secret& secret : secrets) {
        const Reach reach = kept.ReachOf(secret);
        reaches_.emplace_back(secret.text, reach);
        AddPatterns(secret, reach, kept);
    }
    UniteParts();
    std::ranges::stable_sort(patterns_, std::ranges::greater(), &Pattern::Length);
    ChooseReplacements(key, attempt);
}

Redaction::Glyphs Redaction::MakeGlyphs(std::wstring_view text) {
    Glyphs glyphs;
    for (const wchar_t character : Folded(text)) {
        const bool stays = !IsReplaceable(character);
        glyphs.push_back({character, stays ? noCell : cells_.size()});
        if (!stays) {
            cells_.push_back(cells_.size());
        }
    }
    return glyphs;
}

Redaction::Glyphs Redaction::SwappedPairs(Glyphs glyphs, bool isShifted) {
    constexpr Glyph space{L' ', noCell};
    if (isShifted) {
        glyphs.insert(glyphs.begin(), space);
    }
    if (glyphs.size() % 2 != 0) {
        glyphs.push_back(space);
    }
    for (std::size_t place = 1; place < glyphs.size(); place += 2) {
        std::swap(glyphs[place - 1], glyphs[place]);
    }
    const auto isSpace = [](const Glyph& glyph) { return glyph.character == L' '; };
    glyphs.erase(glyphs.begin(), std::ranges::find_if_not(glyphs, isSpace));
    while (!glyphs.empty() && isSpace(glyphs.back())) {
        glyphs.pop_back();
    }
    return glyphs;
}

void Redaction::AddSpellings(const Glyphs& plain, const KeptTexts& kept) {
    Glyphs bare;
    std::ranges::copy_if(plain, std::back_inserter(bare),
                         [](const Glyph& glyph) { return glyph.cell != noCell; });
    const auto isIn = [](std::wstring_view characters) {
        return [characters](const Glyph& glyph) {
            return characters.find(glyph.character) != characters.npos;
        };
    };
    const bool isHex = std::ranges::all_of(bare, isIn(L"0123456789abcdef"));
    const bool isDecimal = std::ranges::all_of(bare, isIn(L"0123456789"));
    for (const Spelling& spelling : spellings) {
        if (spelling.length == 0 ? isDecimal : !isHex || bare.size() != spelling.length) {
            continue;
        }
        Glyphs glyphs;
        std::wstring text;
        for (const Glyph& glyph : bare) {
            if (spelling.length != 0 && text.size() % (spelling.group + 1) == spelling.group) {
                glyphs.push_back({spelling.sign, noCell});
                text += spelling.sign;
            }
            glyphs.push_back(glyph);
            text += glyph.character;
        }
        if (kept.ReachOf({text, SecretKind::device}) == Reach::everywhere) {
            reaches_.emplace_back(std::move(text), Reach::everywhere);
            patterns_.push_back({std::move(glyphs)});
        }
    }
}

void Redaction::AddPatterns(const Secret& secret, Reach reach, const KeptTexts& kept) {
    const Glyphs plain = MakeGlyphs(secret.text);
    whole_[Folded(secret.text)] = plain;
    if (reach == Reach::places) {
        return;
    }
    patterns_.push_back({plain, false, reach == Reach::words});
    if (reach == Reach::words) {
        return;
    }
    std::vector<Glyphs> forms{plain};
    if (secret.kind != SecretKind::name) {
        AddSpellings(plain, kept);
    }
    if (secret.kind == SecretKind::device) {
        forms.push_back(SwappedPairs(plain, false));
        forms.push_back(SwappedPairs(plain, true));
    }
    Glyphs escaped;  // as in a path
    for (const Glyph& glyph : plain) {
        if (glyph.character == L'\\' || glyph.character == L'"') {
            escaped.push_back({L'\\', noCell});
        }
        escaped.push_back(glyph);
    }
    patterns_.push_back({std::move(escaped)});
    constexpr wchar_t endOfAscii = 0x80;
    const bool isAscii =
        std::ranges::all_of(plain, [](const Glyph& glyph) { return glyph.character < endOfAscii; });
    for (Glyphs& form : forms) {
        patterns_.push_back({form});
        if (isAscii) {
            patterns_.push_back({std::move(form), true});
        }
    }
}

std::size_t Redaction::Root(std::size_t cell) const {
    while (cells_[cell] != cell) {
        cell = cells_[cell];
    }
    return cell;
}

void Redaction::UniteParts() {
    std::vector<std::pair<std::wstring, const Glyphs*>> texts;
    const auto add = [&texts](const Glyphs& glyphs) {
        std::wstring text;
        for (const Glyph& glyph : glyphs) {
            text += glyph.character;
        }
        texts.emplace_back(std::move(text), &glyphs);
    };
    for (const auto& [text, glyphs] : whole_) {
        add(glyphs);
    }
    for (const Pattern& pattern : patterns_) {
        add(pattern.glyphs);
    }
    for (const auto& [part, partGlyphs] : texts) {
        for (const auto& [text, glyphs] : texts) {
            if (CountReplaceable(part) < shortestPart && part != text) {
                continue;
            }
            for (std::size_t place = text.find(part); place != text.npos;
                 place = text.find(part, place + 1)) {
                for (std::size_t index = 0; index < part.size(); ++index) {
                    const std::size_t one = (*partGlyphs)[index].cell;
                    const std::size_t other = (*glyphs)[place + index].cell;
                    if (one != noCell && other != noCell) {
                        const auto [first, later] = std::minmax({Root(one), Root(other)});
                        cells_[later] = first;
                    }
                }
            }
        }
    }
}

std::wstring Redaction::ReplacementOf(const Glyphs& glyphs) const {
    std::wstring replacement;
    for (const Glyph& glyph : glyphs) {
        replacement += glyph.cell == noCell ? glyph.character : replacements_[Root(glyph.cell)];
    }
    return replacement;
}

void Redaction::ChooseReplacements(const RedactionKey& key, unsigned attempt) {
    constexpr unsigned contexts = 16;  // for a text that has itself as its replacement
    constexpr unsigned steps = 256;    // until a number becomes a number again
    std::set<std::wstring> taken;
    for (const auto& [secret, reach] : reaches_) {
        if (reach != Reach::places) {
            taken.insert(Folded(secret));
        }
    }
    replacements_.resize(cells_.size());
    for (const auto& [text, glyphs] : whole_) {
        std::vector<std::size_t> own;  // the cells that no part of the text has chosen
        std::wstring characters;
        std::wstring form = text;
        for (std::size_t place = 0; place < text.size(); ++place) {
            const std::size_t cell = glyphs[place].cell;
            if (cell == noCell || replacements_[Root(cell)] != L'\0') {
                continue;
            }
            form[place] = FirstLike(text[place]);
            if (std::ranges::find(own, Root(cell)) == own.end()) {
                own.push_back(Root(cell));
                characters += text[place];
            }
        }
        bool isChosen = false;
        for (unsigned tried = 0; tried < contexts * steps && !isChosen; ++tried) {
            const std::string context =
                std::to_string(attempt) + ' ' + std::to_string(tried / steps) + ' ' + BytesOf(form);
            characters = Permuted(key, context, std::move(characters));
            for (std::size_t index = 0; index < own.size(); ++index) {
                replacements_[own[index]] = characters[index];
            }
            const std::wstring replacement = ReplacementOf(glyphs);
            isChosen = replacement != text && IsNumberOfEitherSign(replacement) == IsNumber(text) &&
                       taken.insert(replacement).second;
        }
        isDistinct_ = isDistinct_ && isChosen;
    }
    for (std::size_t cell = 0; cell < cells_.size(); ++cell) {
        replacements_[cell] = replacements_[Root(cell)];
    }
}

bool Redaction::IsComplete() const {
    return std::ranges::none_of(reaches_,
                                [](const auto& secret) { return secret.second == Reach::places; });
}

bool Redaction::Matches(const Pattern& pattern, std::wstring_view folded, std::size_t place) {
    if (pattern.Length() > folded.size() - place) {
        return false;
    }
    const std::size_t step = pattern.isHex ? 2 : 1;
    for (std::size_t index = 0; index < pattern.glyphs.size(); ++index) {
        const std::size_t at = place + index * step;
        const wchar_t character =
            pattern.isHex ? Folded(CharacterOf(folded.substr(at, 2))) : folded[at];
        if (character != pattern.glyphs[index].character) {
            return false;
        }
    }
    return !pattern.isWord || IsWordAt(folded, place, pattern.glyphs.size());
}

std::wstring Redaction::ReplacedMatch(const Pattern& pattern, std::wstring_view original) const {
    const bool isUpper = original.find_first_of(L"ABCDEF") != original.npos;
    std::wstring replaced;
    for (std::size_t index = 0; index < pattern.glyphs.size(); ++index) {
        const wchar_t character =
            pattern.isHex ? CharacterOf(original.substr(2 * index, 2)) : original[index];
        const std::size_t cell = pattern.glyphs[index].cell;
        const wchar_t instead =
            cell == noCell ? character : InCaseOf(character, replacements_[cell]);
        replaced += pattern.isHex ? DigitsOf(instead, isUpper) : std::wstring(1, instead);
    }
    return replaced;
}

std::wstring Redaction::Replaced(std::wstring_view text) const {
    const std::wstring folded = Folded(text);
    std::wstring replaced;
    std::size_t place = 0;
    while (place < text.size()) {
        const auto found = std::ranges::find_if(
            patterns_, [&](const Pattern& pattern) { return Matches(pattern, folded, place); });
        const std::size_t length = found == patterns_.end() ? 1 : found->Length();
        const std::wstring_view original = text.substr(place, length);
        replaced +=
            found == patterns_.end() ? std::wstring(original) : ReplacedMatch(*found, original);
        place += length;
    }
    return replaced;
}

std::wstring Redaction::ReplacedPiece(std::wstring_view text) const {
    const std::wstring_view trimmed = Trimmed(text);
    const auto secret = whole_.find(Folded(trimmed));
    if (secret == whole_.end()) {
        return Replaced(text);
    }
    std::wstring replaced(text);
    return replaced.replace(text.find(trimmed), trimmed.size(),
                            ReplacedMatch({secret->second}, trimmed));
}

std::wstring Redaction::ReplacedName(std::wstring_view name) const {
    if (whole_.contains(Folded(Trimmed(name)))) {
        return ReplacedPiece(name);
    }
    const std::vector<std::wstring_view> pieces = PiecesOfName(name);
    const std::wstring first = ReplacedPiece(pieces.front());
    return pieces.size() == 1 ? first
                              : first + name[pieces.front().size()] + ReplacedPiece(pieces.back());
}

std::string Redaction::TextOf(const std::string& text) const {
    return ToUtf8(Replaced(ToWide(text)));
}

std::string Redaction::TextOfProperty(std::string_view property, const std::string& text) const {
    const std::wstring wide = ToWide(text);
    const std::wstring_view server = ServerOf(wide);
    if (!server.empty()) {
        constexpr std::size_t before = 2;
        return ToUtf8(L"\\\\" + ReplacedName(server) +
                      Replaced(std::wstring_view(wide).substr(before + server.size())));
    }
    return ToUtf8(IsSecretProperty(property) ? ReplacedName(wide) : Replaced(wide));
}

std::string Redaction::NameOf(const std::string& name) const {
    return ToUtf8(ReplacedName(ToWide(name)));
}

RecordedHost Redaction::Applied(const RecordedHost& host) const {
    const service::ComputerNames& names = host.Computer();
    const RecordedHost computer({NameOf(names.server), NameOf(names.dnsFullyQualified),
                                 NameOf(names.dnsHostname), NameOf(names.netbios)},
                                "", host.System());
    return MapTexts(host, computer, [this](std::string_view property, const std::string& text) {
        return TextOfProperty(property, text);
    });
}

}  // namespace qv::capture
