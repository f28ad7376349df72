#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "platform/Status.h"

namespace qv::doctor {

/// Why a fact could not be looked at.
struct Unknown {
    std::string why = "not looked at";
};

template <typename Value>
using Fact = std::variant<Unknown, Value>;

/// What the registry says of a class of the library.
struct ClassFacts {
    std::string name;  ///< "instance provider"
    std::string classId;
    std::optional<std::string> library;
    std::optional<std::string> threadingModel;
};

/// Rights that a security descriptor allows or denies an account. Their order is that of the
/// entries: rights that an earlier one allows are not denied by a later one.
struct Right {
    std::string account;
    bool isTrusted = false;  ///< administrators, and the system itself
    std::uint32_t mask = 0;
    std::string id;         ///< "S-1-1-0"
    bool isOwner = false;   ///< the owner, who may always change the rights
    bool isDenied = false;  ///< the entry denies them
};

/// A file or folder with the rights on it.
struct GuardedPlace {
    std::string path;
    Fact<std::vector<Right>> rights;
};

/// The registered library.
struct LibraryFacts {
    std::string file;
    bool isBesideProgram = false;  ///< in the folder of this program
    bool exists = false;
    std::optional<std::uint16_t> machine;  ///< of its PE header; nothing if it has none
    std::string whyNotLoaded;              ///< empty if it can be loaded
    std::string version;                   ///< of its version resource
    std::string product;                   ///< the installed MSI's product code; empty without one
    GuardedPlace folder;
    std::vector<GuardedPlace> files;  ///< the library, then other programs and MOF files beside it
    std::vector<GuardedPlace> parents;  ///< the folders above, the nearest first
};

/// How the management service knows a provider.
struct ProviderFacts {
    std::string name;
    bool isEventProvider = false;  ///< as shipped; otherwise it provides instances
    bool exists = false;
    bool hasRegistration = false;  ///< as a provider of what it is shipped to provide
    std::string wrongProperty;     ///< "CLSID is A, not B"; empty if every one is as shipped
    std::string hostingModel;
    std::string usualHostingModel;
};

/// A source that could not be read.
struct UnreadSource {
    std::string text;  ///< "root\\wmi X: WBEM_E_ACCESS_DENIED (0x80041003): no event is raised"
    Status status = Status::noError;
    bool isPrediction = false;  ///< the class of failure predictions
};

/// A value of one of the keys that hold the settings of the logs.
struct SettingFacts {
    std::string name;  ///< "LogLevel"
    /// A number (REG_DWORD), a text, or nothing for a value of another type.
    std::variant<std::monostate, std::uint32_t, std::string> value;
};

/// One of the provider's logs.
struct LogFacts {
    std::string file;
    /// The setting that names it, KEY /v "NAME"; empty if it is in its default place.
    std::string setting;
    std::string folder;
    /// Why this account cannot write it: a system error code, 0 if it can, and its text.
    std::uint32_t error = 0;
    std::string whyNotWritten;
    std::vector<std::string> trouble;  ///< lines near its end that tell of a failure
};

/// The classes as the installed provider publishes them and as the same library does that this
/// program hosts; a line for each class.
struct AnswerFacts {
    bool isLoaded = true;  ///< no class failed because the service could not load the provider
    std::vector<std::string> differences;
    std::vector<std::string> notCompared;  ///< the hosted library cannot publish them
};

/// Everything that the links between a client and the provider rest on.
struct Facts {
    std::string toolVersion;
    std::vector<ClassFacts> classes;
    Fact<LibraryFacts> library = Unknown{"no library is registered"};
    Status connection = Status::noError;  ///< to root\QVQ
    Fact<std::vector<Right>> namespaceRights;
    Fact<std::vector<std::string>> classGaps;  ///< what differs from the shipped definitions
    Fact<std::vector<ProviderFacts>> providers;
    Fact<std::vector<UnreadSource>> unreadSources;  ///< by this account
    Fact<std::vector<LogFacts>> logs;
    Fact<std::vector<SettingFacts>> settings;  ///< those that exist
    Fact<AnswerFacts> answers;
};

}  // namespace qv::doctor
