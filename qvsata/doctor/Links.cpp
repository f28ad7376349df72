#include "qvsata/doctor/Links.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "qvsata/cim/StatusCodes.h"
#include "qvsata/doctor/FolderRules.h"
#include "qvsata/doctor/LogSettingRules.h"
#include "qvsata/doctor/RightRules.h"

namespace qv::doctor {
namespace {

constexpr const char* registerAgain = "qvsata register";
constexpr const char* registerAndRestart =
    "qvsata register && net stop winmgmt /y & net start winmgmt";
constexpr const char* asAdministrator = "; run as an administrator";

/// "3 findings, the first: LINE" for several lines, the line itself for one.
std::string FirstOf(const std::vector<std::string>& lines) {
    return lines.size() == 1
               ? lines.front()
               : std::to_string(lines.size()) + " findings, the first: " + lines.front();
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

/// Returns what is wrong with the library and brings a whole one back: `register` registers the one
/// beside this program, unless that is the broken one.
Finding LibraryProblem(const std::string& text, const Facts& facts, const LibraryFacts& library) {
    if (!library.isBesideProgram) {
        return Problem(text, registerAgain);
    }
    if (!library.product.empty()) {
        return Problem(text, "msiexec /i " + library.product + " REINSTALL=ALL REINSTALLMODE=amus");
    }
    return Problem(text + "; unpack qvwmisata_" + facts.toolVersion + "_windows.zip again", {});
}

Finding JudgeFile(const Facts& facts) {
    return Judged(facts.library, [&facts](const LibraryFacts& library) {
        return library.exists ? Finding()
                              : LibraryProblem(library.file + " does not exist", facts, library);
    });
}

constexpr std::uint16_t amd64 = 0x8664;

Finding JudgeMachine(const Facts& facts) {
    return Judged(facts.library, [&facts](const LibraryFacts& library) -> Finding {
        if (!library.exists) {
            return {State::notChecked, "the file does not exist", {}};
        }
        if (!library.machine) {
            return LibraryProblem(library.file + " is no library", facts, library);
        }
        return library.machine == amd64
                   ? Finding()
                   : LibraryProblem(library.file + " is not for 64-bit Windows (x64)", facts,
                                    library);
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
        return library.whyNotLoaded.empty() ? Finding()
                                            : LibraryProblem(library.whyNotLoaded, facts, library);
    });
}

Finding JudgeVersion(const Facts& facts) {
    return JudgedLibrary(facts, [&facts](const LibraryFacts& library) {
        return library.version == facts.toolVersion
                   ? Finding()
                   : LibraryProblem("the library has version " + library.version +
                                        ", this program " + facts.toolVersion,
                                    facts, library);
    });
}

Finding JudgeFolder(const Facts& facts) {
    return Judged(facts.library, [](const LibraryFacts& library) {
        std::vector<Finding> findings{JudgeLibraryFolder(library.folder)};
        for (std::size_t file = 0; file < library.files.size(); ++file) {
            findings.push_back(JudgeFileBeside(library.files[file], file == 0));
        }
        std::ranges::transform(library.parents, std::back_inserter(findings), JudgeFolderAbove);
        return Worst(findings);
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
        return {State::notChecked, text + asAdministrator, {}};
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
        return Worst(findings);
    });
}

Finding JudgeSource(const UnreadSource& source) {
    if (IsRefusal(source.status)) {
        return {State::notChecked, source.text + asAdministrator, {}};
    }
    // Where no driver predicts failures.
    if (source.isPrediction && source.status == service::status::notSupported) {
        return {State::note, source.text, {}};
    }
    return Problem(source.text, "qvsata sources --live");
}

Finding JudgeSources(const Facts& facts) {
    return Judged(facts.unreadSources, [](const std::vector<UnreadSource>& sources) {
        std::vector<Finding> findings(sources.size());
        std::ranges::transform(sources, findings.begin(), JudgeSource);
        return Worst(findings);
    });
}

Finding JudgeSourcesOfHosts(const Facts&) {
    return {State::uncheckable,
            "only the service can ask as the accounts under which it hosts the providers",
            {}};
}

/// Returns the command that removes a setting, KEY /v "NAME".
std::string BackToDefault(const std::string& setting) {
    return "reg delete " + setting + " /f";
}

/// Returns the command that sets a general setting to its default, so that the module's own is
/// read.
std::string SetDefault(const NumberSetting& setting) {
    return "reg add " + PlaceOf(setting.name) + " /t REG_DWORD /d " +
           std::to_string(setting.defaultValue) + " /f";
}

Finding JudgeSettings(const Facts& facts) {
    return Judged(facts.settings, [](const std::vector<SettingFacts>& settings) -> Finding {
        std::vector<std::string> texts;
        std::vector<std::string> mends;
        for (const SettingFacts& setting : settings) {
            if (const std::string why = WhyNotTaken(setting); !why.empty()) {
                texts.push_back(why);
                mends.push_back(BackToDefault(PlaceOf(setting.name)));
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
    static constexpr std::uint32_t accessDenied = 5;  // ERROR_ACCESS_DENIED
    return Judged(facts.logs, [](const std::vector<LogFacts>& logs) -> Finding {
        for (const LogFacts& log : logs) {
            const std::string text = log.file + " cannot be written: " + log.whyNotWritten;
            if (log.error == accessDenied) {
                return {State::notChecked, text + asAdministrator, {}};
            }
            if (log.error != 0) {
                return Problem(text, log.setting.empty() ? "md \"" + log.folder + '"'
                                                         : BackToDefault(log.setting));
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
                           answers.isLoaded ? registerAndRestart : registerAgain);
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
