#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <variant>
#include <vector>

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

/// A right that a security descriptor allows an account.
struct Right {
    std::string account;
    bool isTrusted = false;  ///< administrators, and the system itself
    std::uint32_t mask = 0;
};

/// The registered library.
struct LibraryFacts {
    std::string file;
    std::string folder;
    bool exists = false;
    std::optional<std::uint16_t> machine;  ///< of its PE header; nothing if it has none
    std::string whyNotLoaded;              ///< empty if it can be loaded
    std::string version;                   ///< of its version resource
    Fact<std::vector<Right>> rights;       ///< on its folder, of files
};

/// How the management service knows a provider.
struct ProviderFacts {
    std::string name;
    bool exists = false;
    bool hasRegistration = false;  ///< as a provider of instances or events
    std::string wrongProperty;     ///< "CLSID is A, not B"; empty if every one is as shipped
    std::string hostingModel;
    std::string usualHostingModel;
};

/// One of the provider's logs.
struct LogFacts {
    std::string file;
    /// The setting that names it, "KEY /v NAME"; empty if it is in its default place.
    std::string setting;
    std::string whyNotWritten;         ///< by this account; empty if it can be
    std::vector<std::string> trouble;  ///< lines near its end that tell of a failure
};

/// Everything that the links between a client and the provider rest on.
struct Facts {
    std::string toolVersion;
    std::vector<ClassFacts> classes;
    Fact<LibraryFacts> library = Unknown{"no library is registered"};
    /// Why root\QVQ cannot be connected to; empty if it can.
    std::string whyNotConnected;
    Fact<std::vector<Right>> namespaceRights;
    Fact<std::vector<std::string>> classGaps;  ///< what differs from the shipped definitions
    Fact<std::vector<ProviderFacts>> providers;
    Fact<std::vector<std::string>> unreadSources;  ///< by this account, a line each
    Fact<std::vector<LogFacts>> logs;
    Fact<std::vector<std::string>> wrongSettings;  ///< values that are out of range
    /// What the installed provider publishes otherwise than the library, a line for each class.
    Fact<std::vector<std::string>> differences;
};

}  // namespace qv::doctor
