#include <filesystem>
#include <memory>

#include "qvsata/cim/Utf8.h"
#include "qvsata/commands/Commands.h"
#include "qvsata/output/Output.h"
#include "qvsata/registration/Registration.h"
#include "qvsata/session/ExitCodes.h"
#include "qvsata/session/Recordings.h"
#include "qvsata/session/Session.h"
#include "qvsata/system/Process.h"
#include "qvsata/view/text/Characters.h"

namespace qv::tool {
namespace {

struct RegisteredFiles {
    std::string library;    ///< empty: beside this program
    std::string mofFolder;  ///< empty: beside this program
};

ProductFiles FilesOf(const RegisteredFiles& given) {
    const auto place = [](const std::string& text, const std::filesystem::path& usual) {
        return text.empty() ? usual : std::filesystem::absolute(FromUtf8(text)).make_preferred();
    };
    return {place(given.library, ProgramFolder() / "QVWMISATA.dll"),
            place(given.mofFolder, ProgramFolder())};
}

/// What both commands do: `change` returns what failed, a line each.
using Change = std::vector<std::string> (*)(Installer& installer, const ProductFiles& files);

void AddChange(CLI::App& program, const std::string& name, const std::string& summary,
               const std::string& done, Change change) {
    const auto given = std::make_shared<RegisteredFiles>();
    CLI::App* command = program.add_subcommand(name, summary);
    command->add_option("--dll", given->library, "the provider (default: beside this program)")
        ->type_name("PATH");
    command
        ->add_option("--mof", given->mofFolder,
                     "folder of the class definitions (default: beside this program)")
        ->type_name("DIR");
    command->footer("Needs Windows and an administrator.\nExample: qvsata " + name);
    command->callback([given, name, done, change] {
        const std::unique_ptr<Installer> installer = InstallerOfThisMachine();
        if (!installer) {
            throw CommandError(name + " needs Windows; this program replays recordings");
        }
        const ProductFiles files = FilesOf(*given);
        const std::vector<std::string> failures = change(*installer, files);
        for (const std::string& failure : failures) {
            WriteErrorLine(failure);
        }
        if (!failures.empty()) {
            throw CommandEnd(failed);
        }
        PrintFitted({{done + view::Printable(service::Utf8OfPath(files.library)) + '\n'}});
    });
}

}  // namespace

void AddRegister(CLI::App& program) {
    AddChange(program, "register",
              "registers the provider on this machine: its library, its classes and itself",
              "registered ", Register);
}

void AddUnregister(CLI::App& program) {
    AddChange(program, "unregister", "removes the provider and its classes from this machine",
              "unregistered ", Unregister);
}

}  // namespace qv::tool
