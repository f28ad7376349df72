#include "qvsata/doctor/Links.h"

#include <algorithm>
#include <array>

namespace qv::doctor {
namespace {

constexpr const char* registerAgain = "qvsata register";

Finding Problem(std::string text, std::string mend) {
    return {State::problem, std::move(text), std::move(mend)};
}

/// "3 findings, the first: LINE" for several lines, the line itself for one.
std::string FirstOf(const std::vector<std::string>& lines) {
    return lines.size() == 1
               ? lines.front()
               : std::to_string(lines.size()) + " findings, the first: " + lines.front();
}

/// Judges a fact; one that could not be looked at is not checked.
template <typename Value, typename Judge>
Finding Judged(const Fact<Value>& fact, Judge judge) {
    if (const auto* const unknown = std::get_if<Unknown>(&fact)) {
        return {State::notChecked, unknown->why, {}};
    }
    return judge(std::get<Value>(fact));
}

/// Judges a list of what is wrong.
Finding NoneOf(const Fact<std::vector<std::string>>& fact, const std::string& mend) {
    return Judged(fact, [&mend](const std::vector<std::string>& lines) {
        return lines.empty() ? Finding() : Problem(FirstOf(lines), mend);
    });
}

Finding JudgeKeys(const Facts& facts) {
    for (const ClassFacts& one : facts.classes) {
        if (!one.library) {
            return Problem(
                "the class " + one.classId + " of the " + one.name + " is not registered",
                registerAgain);
        }
        if (one.library != facts.classes.front().library) {
            return Problem("the " + one.name + " is registered with another file, " + *one.library,
                           registerAgain);
        }
    }
    return {};
}

Finding JudgeThreadingModels(const Facts& facts) {
    const auto isRegistered = [](const ClassFacts& one) { return one.library.has_value(); };
    if (std::ranges::none_of(facts.classes, isRegistered)) {
        return {State::notChecked, "no class is registered", {}};
    }
    for (const ClassFacts& one : facts.classes) {
        if (one.library && one.threadingModel != "Both") {
            return Problem("the threading model of the " + one.name + " is " +
                               one.threadingModel.value_or("missing") + ", not Both",
                           registerAgain);
        }
    }
    return {};
}

Finding JudgeFile(const Facts& facts) {
    return Judged(facts.library, [](const LibraryFacts& library) {
        return library.exists ? Finding()
                              : Problem(library.file + " does not exist", registerAgain);
    });
}

constexpr std::uint16_t amd64 = 0x8664;

Finding JudgeMachine(const Facts& facts) {
    return Judged(facts.library, [](const LibraryFacts& library) -> Finding {
        if (!library.exists) {
            return {State::notChecked, "the file does not exist", {}};
        }
        if (!library.machine) {
            return Problem(library.file + " is no library", registerAgain);
        }
        return library.machine == amd64
                   ? Finding()
                   : Problem(library.file + " is not for 64-bit Windows (x64)", registerAgain);
    });
}

/// Judges the registered library; one that is none of 64 bits is not checked.
template <typename Judge>
Finding JudgedLibrary(const Facts& facts, Judge judge) {
    return Judged(facts.library, [judge](const LibraryFacts& library) -> Finding {
        if (library.machine != amd64) {
            return {State::notChecked, "the file is no library for 64 bits", {}};
        }
        return judge(library);
    });
}

Finding JudgeLoading(const Facts& facts) {
    return JudgedLibrary(facts, [](const LibraryFacts& library) {
        return library.whyNotLoaded.empty() ? Finding()
                                            : Problem(library.whyNotLoaded, registerAgain);
    });
}

Finding JudgeVersion(const Facts& facts) {
    return JudgedLibrary(facts, [&facts](const LibraryFacts& library) {
        return library.version == facts.toolVersion
                   ? Finding()
                   : Problem("the library has version " + library.version + ", this program " +
                                 facts.toolVersion,
                             registerAgain);
    });
}

/// Returns the accounts, other than trusted ones, that are allowed any right of a mask.
std::string AccountsWith(const std::vector<Right>& rights, std::uint32_t mask) {
    std::string accounts;
    for (const Right& right : rights) {
        if (!right.isTrusted && (right.mask & mask) != 0) {
            accounts += (accounts.empty() ? "" : ", ") + right.account;
        }
    }
    return accounts;
}

Finding JudgeFolder(const Facts& facts) {
    // FILE_ADD_FILE, FILE_ADD_SUBDIRECTORY, FILE_DELETE_CHILD, DELETE, WRITE_DAC, WRITE_OWNER,
    // GENERIC_ALL and GENERIC_WRITE.
    static constexpr std::uint32_t changes = 0x500D0046;
    const auto* const library = std::get_if<LibraryFacts>(&facts.library);
    const Fact<std::vector<Right>> unregistered = Unknown{"no library is registered"};
    return Judged(library == nullptr ? unregistered : library->rights,
                  [library](const std::vector<Right>& rights) -> Finding {
                      const std::string accounts = AccountsWith(rights, changes);
                      if (accounts.empty()) {
                          return {};
                      }
                      return Problem("others than administrators can change " + library->folder +
                                         ", and so run code as the system: " + accounts,
                                     "icacls \"" + library->folder +
                                         "\" /inheritance:r /grant:r *S-1-5-18:(OI)(CI)F "
                                         "*S-1-5-32-544:(OI)(CI)F *S-1-5-32-545:(OI)(CI)RX");
                  });
}

Finding JudgeConnection(const Facts& facts) {
    return facts.whyNotConnected.empty()
               ? Finding()
               : Problem("root\\QVQ cannot be connected to: " + facts.whyNotConnected,
                         registerAgain);
}

Finding JudgeNamespaceRights(const Facts& facts) {
    // WBEM_FULL_WRITE_REP, WBEM_PARTIAL_WRITE_REP, WBEM_WRITE_PROVIDER, WRITE_DAC and WRITE_OWNER.
    static constexpr std::uint32_t writes = 0xC001C;
    static constexpr std::uint32_t enable = 1;
    return Judged(facts.namespaceRights, [](const std::vector<Right>& rights) -> Finding {
        if (const std::string accounts = AccountsWith(rights, writes); !accounts.empty()) {
            return Problem("others than administrators can write to root\\QVQ: " + accounts,
                           registerAgain);
        }
        if (AccountsWith(rights, enable).empty()) {
            return Problem("nobody but administrators can read root\\QVQ", registerAgain);
        }
        return {};
    });
}

Finding JudgeClasses(const Facts& facts) {
    return NoneOf(facts.classGaps, registerAgain);
}

Finding JudgeProvider(const ProviderFacts& provider) {
    if (!provider.exists || !provider.hasRegistration) {
        return Problem(provider.name + " is not registered with the management service",
                       registerAgain);
    }
    if (!provider.wrongProperty.empty()) {
        return Problem(provider.name + ": " + provider.wrongProperty, registerAgain);
    }
    if (provider.hostingModel != provider.usualHostingModel) {
        return {State::note,
                provider.name + " runs as " + provider.hostingModel + ", not as " +
                    provider.usualHostingModel,
                registerAgain};
    }
    return {};
}

Finding JudgeProviders(const Facts& facts) {
    return Judged(facts.providers, [](const std::vector<ProviderFacts>& providers) {
        std::vector<Finding> findings(providers.size());
        std::ranges::transform(providers, findings.begin(), JudgeProvider);
        // A problem is worse than a note, and that than nothing.
        const auto worst = std::ranges::max_element(findings, {}, &Finding::state);
        return worst == findings.end() ? Finding() : *worst;
    });
}

Finding JudgeSources(const Facts& facts) {
    return NoneOf(facts.unreadSources, "qvsata sources --live");
}

Finding JudgeSourcesOfHosts(const Facts&) {
    return {State::uncheckable,
            "only the service can ask as the accounts under which it hosts the providers",
            {}};
}

Finding JudgeSettings(const Facts& facts) {
    return NoneOf(facts.wrongSettings,
                  R"(reg add HKLM\SOFTWARE\Corvane\WBEM /f /v LogLevel /t REG_DWORD /d 3 & )"
                  R"(reg add HKLM\SOFTWARE\Corvane\WBEM /f /v LogMaxSize /t REG_DWORD /d 2097152)");
}

Finding JudgeLogs(const Facts& facts) {
    return Judged(facts.logs, [](const std::vector<LogFacts>& logs) -> Finding {
        for (const LogFacts& log : logs) {
            if (!log.whyNotWritten.empty()) {
                return Problem(log.file + " cannot be written: " + log.whyNotWritten,
                               log.setting.empty() ? "" : "reg delete /f " + log.setting);
            }
        }
        return {};
    });
}

Finding JudgeTrouble(const Facts& facts) {
    return Judged(facts.logs, [](const std::vector<LogFacts>& logs) -> Finding {
        for (const LogFacts& log : logs) {
            if (!log.trouble.empty()) {
                return {State::note, log.file + ": " + log.trouble.back(),
                        "type \"" + log.file + '"'};
            }
        }
        return {};
    });
}

Finding JudgeAnswers(const Facts& facts) {
    return NoneOf(facts.differences, "net stop winmgmt /y & net start winmgmt");
}

struct JudgedLink {
    std::string_view name;
    Finding (*judge)(const Facts& facts);
};

constexpr std::array links{
    JudgedLink{"registered classes", JudgeKeys},
    JudgedLink{"threading model", JudgeThreadingModels},
    JudgedLink{"library file", JudgeFile},
    JudgedLink{"library for 64 bits", JudgeMachine},
    JudgedLink{"library loads", JudgeLoading},
    JudgedLink{"library version", JudgeVersion},
    JudgedLink{"library folder", JudgeFolder},
    JudgedLink{"namespace", JudgeConnection},
    JudgedLink{"namespace rights", JudgeNamespaceRights},
    JudgedLink{"class definitions", JudgeClasses},
    JudgedLink{"provider registrations", JudgeProviders},
    JudgedLink{"sources, this account", JudgeSources},
    JudgedLink{"sources, hosting accounts", JudgeSourcesOfHosts},
    JudgedLink{"log settings", JudgeSettings},
    JudgedLink{"log files", JudgeLogs},
    JudgedLink{"trouble in the logs", JudgeTrouble},
    JudgedLink{"installed answers", JudgeAnswers},
};

}  // namespace

std::vector<Link> JudgeLinks(const Facts& facts) {
    std::vector<Link> judged;
    for (const JudgedLink& link : links) {
        judged.push_back({link.name, link.judge(facts)});
    }
    return judged;
}

}  // namespace qv::doctor
