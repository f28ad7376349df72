#include "qvsata/doctor/FolderRules.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/doctor/RightRules.h"

namespace qv::doctor {
namespace {

/// Returns those of the rights on a file or folder that allow others than trusted accounts to
/// change it.
std::vector<Right> WritersAmong(const std::vector<Right>& rights) {
    // FILE_WRITE_DATA and FILE_APPEND_DATA, or FILE_ADD_FILE and FILE_ADD_SUBDIRECTORY,
    // FILE_DELETE_CHILD, DELETE, WRITE_DAC, WRITE_OWNER, GENERIC_ALL and GENERIC_WRITE.
    return OthersWith(rights, 0x500D0046);
}

/// Returns the IDs of accounts as icacls reads them: " *S-1-1-0".
std::string IdsOf(const std::vector<Right>& rights) {
    std::string ids;
    for (const Right& right : rights) {
        ids.append(" *").append(right.id);
    }
    return ids;
}

/// Returns the command that takes a file or folder from an owner among the writers.
std::string OwnerMend(const std::string& path, const std::vector<Right>& writers) {
    return std::ranges::any_of(writers, &Right::isOwner) ? "takeown /f \"" + path + "\" /a & " : "";
}

/// Returns the command that leaves a folder to administrators, and lets users read it. An entry of
/// the folder itself stays unless it is removed or replaced by name. None for a drive's root, where
/// other folders would lose the rights.
std::string FolderMend(const std::string& folder, const std::vector<Right>& rights) {
    if (folder.ends_with('\\')) {
        return {};
    }
    constexpr std::string_view users = "S-1-5-32-545";
    const std::vector<Right> writers = WritersAmong(rights);
    std::vector<Right> removed;
    std::ranges::copy_if(writers, std::back_inserter(removed), [users](const Right& writer) {
        return writer.id != users && !writer.isOwner;
    });
    const std::vector<Right> denials = DenialsOfHosts(rights);
    const std::string command = "icacls \"" + folder + '"';
    return OwnerMend(folder, writers) + command +
           " /inheritance:r /grant:r *S-1-5-18:(OI)(CI)F *S-1-5-32-544:(OI)(CI)F "
           "*S-1-5-32-545:(OI)(CI)RX" +
           (removed.empty() ? "" : " /remove:g" + IdsOf(removed)) +
           (denials.empty() ? "" : " & " + command + " /remove:d" + IdsOf(denials));
}

std::string FileMend(const std::string& file, const std::vector<Right>& rights) {
    return OwnerMend(file, WritersAmong(rights)) + "icacls \"" + file + "\" /reset";
}

Finding JudgeWriters(const std::string& path, const std::vector<Right>& rights,
                     const std::string& mend) {
    const std::vector<Right> writers = WritersAmong(rights);
    return writers.empty() ? Finding()
                           : Problem("others than administrators can change " + path +
                                         ", and so run code as the system: " + NamesOf(writers),
                                     mend);
}

Finding JudgeReaders(const std::string& path, const std::vector<Right>& rights,
                     const std::string& mend) {
    return IsReadByHosts(rights) ? Finding() : Problem("NETWORK SERVICE cannot read " + path, mend);
}

}  // namespace

Finding JudgeLibraryFolder(const GuardedPlace& folder) {
    return Judged(folder.rights, [&folder](const std::vector<Right>& rights) {
        const std::string mend = FolderMend(folder.path, rights);
        return Worst(
            {JudgeWriters(folder.path, rights, mend), JudgeReaders(folder.path, rights, mend)});
    });
}

Finding JudgeFileBeside(const GuardedPlace& file, bool isLibrary) {
    return Judged(file.rights, [&file, isLibrary](const std::vector<Right>& rights) {
        const std::string mend = FileMend(file.path, rights);
        return Worst({JudgeWriters(file.path, rights, mend),
                      isLibrary ? JudgeReaders(file.path, rights, mend) : Finding()});
    });
}

Finding JudgeFolderAbove(const GuardedPlace& folder) {
    return Judged(folder.rights, [&folder](const std::vector<Right>& rights) {
        // FILE_DELETE_CHILD, DELETE, WRITE_DAC, WRITE_OWNER and GENERIC_ALL.
        const std::vector<Right> replacers = OthersWith(rights, 0x100D0040);
        return replacers.empty()
                   ? Finding()
                   : Problem("others than administrators can rename or replace what is in " +
                                 folder.path + ", and so run code as the system: " +
                                 NamesOf(replacers) + "; install under Program Files instead",
                             {});
    });
}

}  // namespace qv::doctor
