#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "qvsata/recorded/RecordedHost.h"

namespace qv::capture {

/// What a text identifies.
enum class SecretKind {
    name,    ///< a computer, a domain, a user, a volume as its user calls it
    device,  ///< a disk, a volume, an account by number, a network address
    mac,     ///< a network card; the text has its twelve digits only
};

struct Secret {
    std::wstring text;
    SecretKind kind;
};

/// Returns the texts of a recording that identify its computer, its users, disks, volumes and
/// network, each once, ignoring case. A serial number that is recorded as the hexadecimal codes of
/// its characters, of which each pair is swapped, is returned as the text.
std::vector<Secret> SecretsOf(const service::RecordedHost& host);

/// Returns whether the whole text of a property is a secret.
bool IsSecretProperty(std::string_view property);

/// Returns the pieces of a name: "srv", "example.org" of "srv.example.org"; "HOME", "user" of
/// "HOME\user".
std::vector<std::wstring_view> PiecesOfName(std::wstring_view name);

/// Returns the server of a text that begins with two backslashes and a server; empty for any other
/// text and for the server ".".
std::wstring_view ServerOf(std::wstring_view text);

}  // namespace qv::capture
