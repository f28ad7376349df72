#include "qvsata/doctor/Links.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "qvsata/cim/StatusCodes.h"
#include "qvsata/doctor/LogSettingRules.h"

namespace qv::doctor {
namespace {

constexpr const char* registerAgain = "qvsata register";
constexpr const char* restartService = "net stop winmgmt /y & net start winmgmt";

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

/// Returns what brings a whole library back: `register` registers the one beside this program,
/// unless that is the broken one.
std::string LibraryMend(const Facts& facts, const LibraryFacts& library) {
    return library.isBesideProgram
               ? "msiexec /fomus qvwmisata_" + facts.toolVersion +
                     "_x64.msi, or unpack qvwmisata_" + facts.toolVersion + "_windows.zip again"
               : registerAgain;
}

Finding JudgeFile(const Facts& facts) {
    return Judged(facts.library, [&facts](const LibraryFacts& library) {
        return library.exists
                   ? Finding()
                   : Problem(library.file + " does not exist", LibraryMend(facts, library));
    });
}

constexpr std::uint16_t amd64 = 0x8664;

Finding JudgeMachine(const Facts& facts) {
    return Judged(facts.library, [&facts](const LibraryFacts& library) -> Finding {
        if (!library.exists) {
            return {State::notChecked, "the file does not exist", {}};
        }
        if (!library.machine) {
            return Problem(library.file + " is no library", LibraryMend(facts, library));
        }
        return library.machine == amd64 ? Finding()
                                        : Problem(library.file + " is not for 64-bit Windows (x64)",
                                                  LibraryMend(facts, library));
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
    return JudgedLibrary(facts, [&facts](const LibraryFacts& library) {
        return library.whyNotLoaded.empty()
                   ? Finding()
                   : Problem(library.whyNotLoaded, LibraryMend(facts, library));
    });
}

Finding JudgeVersion(const Facts& facts) {
    return JudgedLibrary(facts, [&facts](const LibraryFacts& library) {
        return library.version == facts.toolVersion
                   ? Finding()
                   : Problem("the library has version " + library.version + ", this program " +
                                 facts.toolVersion,
                             LibraryMend(facts, library));
    });
}

std::string Joined(const std::vector<std::string>& texts, std::string_view separator) {
    std::string joined;
    for (const std::string& text : texts) {
        joined.append(joined.empty() ? "" : separator).append(text);
    }
    return joined;
}

/// Returns those of the rights that allow accounts other than trusted ones any right of a mask.
std::vector<Right> OthersWith(const std::vector<Right>& rights, std::uint32_t mask) {
    std::vector<Right> others;
    std::ranges::copy_if(rights, std::back_inserter(others), [mask](const Right& right) {
        return !right.isTrusted && (right.mask & mask) != 0;
    });
    return others;
}

/// Returns those of the rights on a file or folder that allow others than trusted accounts to
/// change it.
std::vector<Right> WritersAmong(const std::vector<Right>& rights) {
    // FILE_WRITE_DATA and FILE_APPEND_DATA, or FILE_ADD_FILE and FILE_ADD_SUBDIRECTORY,
    // FILE_DELETE_CHILD, DELETE, WRITE_DAC, WRITE_OWNER, GENERIC_ALL and GENERIC_WRITE.
    return OthersWith(rights, 0x500D0046);
}

std::string NamesOf(const std::vector<Right>& rights) {
    std::vector<std::string> names;
    std::ranges::transform(rights, std::back_inserter(names), [](const Right& right) {
        return right.account + (right.isOwner ? " (owner)" : "");
    });
    return Joined(names, ", ");
}

/// Returns whether the accounts that host the providers can read and run files. The system always
/// can, in a folder of administrators.
bool IsReadByHosts(const std::vector<Right>& rights) {
    // NETWORK SERVICE, and the groups that it is in: users, authenticated users and everyone.
    static constexpr std::array<std::string_view, 4> hosts{"S-1-5-20", "S-1-5-32-545", "S-1-5-11",
                                                           "S-1-1-0"};
    // FILE_LIST_DIRECTORY and FILE_TRAVERSE, or what contains them.
    static constexpr std::array<std::uint32_t, 3> readings{0x21, 0xA0000000, 0x10000000};
    std::uint32_t mask = 0;
    for (const Right& right : rights) {
        mask |= std::ranges::find(hosts, right.id) == hosts.end() ? 0 : right.mask;
    }
    return std::ranges::any_of(
        readings, [mask](std::uint32_t reading) { return (mask & reading) == reading; });
}

/// Returns the command that takes a file or folder from an owner among the writers.
std::string OwnerMend(const std::string& place, const std::vector<Right>& writers) {
    return std::ranges::any_of(writers, &Right::isOwner)
               ? "icacls \"" + place + "\" /setowner *S-1-5-32-544 & "
               : "";
}

/// Returns the command that leaves a folder to administrators, and lets users read it. A right that
/// was granted on the folder itself stays unless it is removed or replaced by name.
std::string FolderMend(const std::string& folder, const std::vector<Right>& writers) {
    constexpr std::string_view users = "S-1-5-32-545";
    std::vector<std::string> removed;
    for (const Right& writer : writers) {
        if (writer.id != users && !writer.isOwner) {
            removed.push_back('*' + writer.id);
        }
    }
    return OwnerMend(folder, writers) + "icacls \"" + folder +
           "\" /inheritance:r /grant:r *S-1-5-18:(OI)(CI)F *S-1-5-32-544:(OI)(CI)F "
           "*S-1-5-32-545:(OI)(CI)RX" +
           (removed.empty() ? "" : " /remove:g " + Joined(removed, " "));
}

/// Judges the rights on the library's folder, or on the library itself.
Finding JudgeRights(const std::vector<Right>& rights, const std::string& place,
                    const std::string& mend) {
    if (const std::vector<Right> writers = WritersAmong(rights); !writers.empty()) {
        return Problem("others than administrators can change " + place +
                           ", and so run code as the system: " + NamesOf(writers),
                       mend);
    }
    return IsReadByHosts(rights) ? Finding()
                                 : Problem("NETWORK SERVICE cannot read " + place, mend);
}

Finding JudgeFolder(const Facts& facts) {
    const auto* const library = std::get_if<LibraryFacts>(&facts.library);
    if (library == nullptr) {
        return {State::notChecked, "no library is registered", {}};
    }
    Finding folder = Judged(library->folderRights, [library](const std::vector<Right>& rights) {
        return JudgeRights(rights, library->folder,
                           FolderMend(library->folder, WritersAmong(rights)));
    });
    if (folder.state != State::ok) {
        return folder;
    }
    return Judged(library->fileRights, [library](const std::vector<Right>& rights) {
        return JudgeRights(rights, library->file,
                           OwnerMend(library->file, WritersAmong(rights)) + "icacls \"" +
                               library->file + "\" /reset");
    });
}

/// Returns whether the service refused this account: as one of its own codes or of COM
/// (E_ACCESSDENIED).
bool IsRefusal(Status status) {
    return status == service::status::accessDenied || status == Status{0x80070005};
}

Finding JudgeConnection(const Facts& facts) {
    if (Succeeded(facts.connection)) {
        return {};
    }
    const std::string text =
        "root\\QVQ cannot be connected to: " + service::StatusText(facts.connection);
    if (IsRefusal(facts.connection)) {
        return {State::notChecked, text + "; run as an administrator", {}};
    }
    if (facts.connection == service::status::invalidNamespace) {
        return Problem(text, registerAgain);
    }
    constexpr Status serviceDisabled{0x80070422};  // ERROR_SERVICE_DISABLED
    return Problem(text, facts.connection == serviceDisabled
                             ? "sc config winmgmt start= auto & net start winmgmt"
                             : "net start winmgmt");
}

Finding JudgeNamespaceRights(const Facts& facts) {
    // WBEM_FULL_WRITE_REP, WBEM_PARTIAL_WRITE_REP, WBEM_WRITE_PROVIDER, WRITE_DAC and WRITE_OWNER.
    static constexpr std::uint32_t writes = 0xC001C;
    static constexpr std::uint32_t enable = 1;
    return Judged(facts.namespaceRights, [](const std::vector<Right>& rights) -> Finding {
        if (const std::vector<Right> writers = OthersWith(rights, writes); !writers.empty()) {
            return Problem("others than administrators can write to root\\QVQ: " + NamesOf(writers),
                           registerAgain);
        }
        if (OthersWith(rights, enable).empty()) {
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
    if (provider.hostingModel == provider.usualHostingModel) {
        return {};
    }
    const std::string text = provider.name + " runs as " + provider.hostingModel + ", not as " +
                             provider.usualHostingModel;
    // The event provider impersonates nobody, and its source answers administrators only.
    if (provider.isEventProvider && !provider.hostingModel.starts_with("LocalSystemHost")) {
        return Problem(
            text + "; it raises no event unless that account may read failure predictions",
            registerAgain);
    }
    return {State::note, text, registerAgain};
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

/// Returns the command that removes a setting, "KEY /v NAME".
std::string BackToDefault(const std::string& setting) {
    return "reg delete " + setting + " /f";
}

/// Returns the command that sets a general setting to its default, so that the module's own is
/// read.
std::string SetDefault(const NumberSetting& setting) {
    return "reg add " + std::string(logSettingsKey) + " /v " + std::string(setting.name) +
           " /t REG_DWORD /d " + std::to_string(setting.defaultValue) + " /f";
}

Finding JudgeSettings(const Facts& facts) {
    return Judged(facts.settings, [](const std::vector<SettingFacts>& settings) -> Finding {
        std::vector<std::string> texts;
        std::vector<std::string> mends;
        for (const SettingFacts& setting : settings) {
            if (const std::string why = WhyNotTaken(setting); !why.empty()) {
                texts.push_back(why);
                mends.push_back(
                    BackToDefault(std::string(logSettingsKey) + " /v \"" + setting.name + '"'));
            } else if (const NumberSetting* const general = GeneralSetting(setting.name);
                       general != nullptr && !IsTaken(general->name, settings)) {
                texts.push_back(setting.name + " has no effect: " + std::string(general->name) +
                                " is not set to a number in its range");
                mends.push_back(SetDefault(*general));
            }
        }
        return texts.empty() ? Finding() : Problem(Joined(texts, "; "), Joined(mends, " & "));
    });
}

Finding JudgeLogs(const Facts& facts) {
    return Judged(facts.logs, [](const std::vector<LogFacts>& logs) -> Finding {
        for (const LogFacts& log : logs) {
            if (!log.whyNotWritten.empty()) {
                return Problem(log.file + " cannot be written: " + log.whyNotWritten,
                               log.setting.empty() ? "" : BackToDefault(log.setting));
            }
        }
        return {};
    });
}

Finding JudgeTrouble(const Facts& facts) {
    return Judged(facts.logs, [](const std::vector<LogFacts>& logs) -> Finding {
        std::vector<std::string> texts;
        std::vector<std::string> mends;
        for (const LogFacts& log : logs) {
            if (!log.trouble.empty()) {
                texts.push_back(log.file + ": " + log.trouble.back());
                mends.push_back("type \"" + log.file + '"');
            }
        }
        return texts.empty() ? Finding()
                             : Finding{State::note, Joined(texts, "; "), Joined(mends, " & ")};
    });
}

Finding JudgeAnswers(const Facts& facts) {
    return Judged(facts.answers, [](const AnswerFacts& answers) -> Finding {
        if (!answers.differences.empty()) {
            return Problem(FirstOf(answers.differences),
                           answers.isLoaded ? restartService : registerAgain);
        }
        return answers.notCompared.empty()
                   ? Finding()
                   : Finding{State::notChecked, FirstOf(answers.notCompared), {}};
    });
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
    JudgedLink{"log files, this account", JudgeLogs},
    JudgedLink{"trouble in the logs", JudgeTrouble},
    JudgedLink{"installed answers", JudgeAnswers},
};

}  // namespace

std::vector<Link> JudgeLinks(const Facts& facts) {
    std::vector<Link> judged;
    std::ranges::transform(links, std::back_inserter(judged), [&](const JudgedLink& link) {
        return Link{link.name, link.judge(facts)};
    });
    return judged;
}

}  // namespace qv::doctor
