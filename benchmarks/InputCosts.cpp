// Measures what hostile inputs cost the tool: the time and memory of inputs that were once
// expensive, at a size and at four times that size. tools/bench-inputs runs it.
//   input_costs QVSATA FOLDER: QVSATA is the program, FOLDER holds the inputs while it runs.
// "growth" is the time per byte of the larger input divided by that of the smaller one: 1 for a
// cost proportional to the size, 4 for one proportional to its square. "memory" is the peak per
// byte of the larger input. A run on an empty recording is subtracted from both. Exit code 1 if a
// growth exceeds 2, an input needs more than 20 bytes per byte, unless --limit bounds what it
// publishes, or a command does not end as expected.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace {

std::string Repeat(int count, const std::string& between, const auto& part) {
    std::string text;
    for (int number = 0; number < count; ++number) {
        text += (number == 0 ? "" : between) + part(std::to_string(number));
    }
    return text;
}

std::string Recording(const std::string& namespaces) {
    return R"({"computer":{"netbios":"H"},"namespaces":{)" + namespaces + "}}";
}

std::string Rows(const std::string& className, const std::string& rows) {
    return Recording(R"("root\\CIMv2":{")" + className + "\":[" + rows + "]}");
}

/// Returns a recording of disks on one channel with a partition each, these device IDs and these
/// plug-and-play IDs, and with these media rows.
std::string Disks(int count, const auto& path, const auto& deviceId,
                  const std::string& media = "") {
    const auto disk = [&](const std::string& number) {
        return R"({"DeviceID":")" + path(number) + R"(","PNPDeviceID":")" + deviceId(number) +
               R"(","InterfaceType":"IDE","Status":"OK"})";
    };
    const auto partition = [](const std::string& number) {
        return R"({"DeviceID":"P)" + number + "\"}";
    };
    const auto onChannel = [&](const std::string& number) {
        return R"({"Antecedent":"\\\\H\\root\\CIMv2:Win32_IDEController.DeviceID=\"IDECHANNEL\"",)"
               R"("Dependent":"Win32_PnPEntity.DeviceID=\")" +
               deviceId(number) + R"(\""})";
    };
    const auto ofDisk = [&](const std::string& number) {
        return R"({"Antecedent":"Win32_DiskDrive.DeviceID=\")" + path(number) +
               R"(\"","Dependent":"Win32_DiskPartition.DeviceID=\"P)" + number + R"(\""})";
    };
    return Recording(R"("root\\CIMv2":{"Win32_PhysicalMedia":[)" + media +
                     R"(],"Win32_PnPDevice":[],"Win32_DiskDrive":[)" + Repeat(count, ",", disk) +
                     R"(],"Win32_DiskPartition":[)" + Repeat(count, ",", partition) +
                     R"(],"Win32_IDEController":[{"DeviceID":"IDECHANNEL"}],)"
                     R"("Win32_IDEControllerDevice":[)" +
                     Repeat(count, ",", onChannel) + R"(],"Win32_DiskDriveToDiskPartition":[)" +
                     Repeat(count, ",", ofDisk) + "]}");
}

std::string EmptyRows(int count) {
    return Rows("X", Repeat(count, ",", [](const auto&) { return std::string("{}"); }));
}

std::string RowsOfOneNumber(int count) {
    return Rows("X", Repeat(count, ",", [](const auto&) { return std::string("{\"A\":1}"); }));
}

std::string LongClassName(int count) {
    return Rows(std::string(static_cast<std::size_t>(count), 'N'),
                Repeat(count, ",", [](const auto&) { return std::string("{}"); }));
}

std::string ManyNamespaces(int count) {
    return Recording(Repeat(count, ",", [](const auto& n) { return "\"n" + n + "\":{}"; }));
}

std::string ManyClasses(int count) {
    return Recording(R"("root\\CIMv2":{)" +
                     Repeat(count, ",", [](const auto& n) { return "\"C" + n + "\":[]"; }) + "}");
}

std::string ManyProperties(int count) {
    return Rows("X", std::string("{").append(Repeat(count, ",", [](const auto& n) {
        return "\"p" + n + "\":1";
    })) + "}");
}

std::string ManyKeys(int count) {
    return Rows("X", "{\"R\":\"X." + Repeat(count, ",", [](const auto& n) {
                         return "k" + n + "=" + n;
                     }) + "\"}");
}

std::string EqualDisks(int count) {
    return Disks(
        count, [](const auto& n) { return "D" + n; },
        [](const auto&) { return std::string("IDE"); });
}

std::string DisksWithOnePath(int count) {
    return Disks(
        count, [](const auto&) { return std::string("D"); },
        [](const auto& n) { return "IDE" + n; });
}

/// Returns disks with distinct IDs and a media row each.
std::string DisksWithMedia(int count) {
    const auto media = [](const auto& n) {
        return R"({"Tag":"D)" + n + R"(","SerialNumber":"S)" + n + "\"}";
    };
    return Disks(
        count, [](const auto& n) { return "D" + n; }, [](const auto& n) { return "IDE" + n + "."; },
        Repeat(count, ",", media));
}

/// Returns disks whose IDs are a, aa, aaa, ...: each is the beginning of all that follow.
std::string DisksOfOneBeginning(int count) {
    const auto id = [](const auto& n) { return std::string(std::stoul(n) + 1, 'a'); };
    return Disks(count, id, id);
}

std::string LargeRecording(int count) {
    return Rows("X", Repeat(count, ",", [](const auto& n) {
                    return R"({"DeviceID":"\\\\.\\D)" + n +
                           R"(","Caption":"A device of some kind","Size":")" + n +
                           R"(000","Index":1,"Status":"OK"})";
                }));
}

std::string ClassChain(int count) {
    return "class C0 { string p; };\n" + Repeat(count, "\n", [](const auto& n) {
               return "class C" + std::to_string(std::stoi(n) + 1) + " : C" + n + " {};";
           });
}

std::string PropertiesOf(int count, const std::string& qualifiers) {
    return Repeat(count, " ", [&](const auto& n) { return qualifiers + " string p" + n + ";"; });
}

std::string EmptyClasses(int count, const std::string& superclass) {
    return Repeat(count, "\n",
                  [&](const auto& n) { return "class B" + n + " : " + superclass + " {};"; });
}

std::string SubclassesOfManyProperties(int count) {
    return "class A { " + PropertiesOf(1'000, "") + " };\n" + EmptyClasses(count, "A");
}

std::string SubclassesOfManyKeys(int count) {
    return "class A { " + PropertiesOf(200, "[key]") + " };\n" + EmptyClasses(count, "A");
}

std::string SubclassesOfAChain(int count) {
    return ClassChain(250) + "\n" + EmptyClasses(count, "C250");
}

std::string ManyPropertiesOfAClass(int count) {
    return "class A { " + PropertiesOf(count, "") + " };";
}

std::string ManyQualifiers(int count) {
    return "class A { [" + Repeat(count, ",", [](const auto& n) { return "q" + n; }) +
           "] string p; };";
}

/// Returns a class with a key and so many properties, and instances of it.
std::string InstancesOf(int properties, int count) {
    return "class A { [key] string N; " + PropertiesOf(properties, "") + " };\n" +
           Repeat(count, "\n",
                  [](const auto& n) { return "instance of A { N = \"" + n + "\"; };"; });
}

std::string RemovedClasses(int count) {
    std::string text;
    for (int i = 0; i < count; ++i) {
        text += "class C" + std::to_string(i) + " {};\n";
    }
    for (int i = 0; i < count; ++i) {
        text += "#pragma deleteclass(\"C" + std::to_string(i) + "\", FAIL)\n";
    }
    return text;
}

std::string ManyInstances(int count) {
    return InstancesOf(0, count);
}

std::string InstancesOfManyProperties(int count) {
    return InstancesOf(1'000, count);
}

struct Input {
    const char* name;
    std::string (*text)(int count);
    std::array<int, 2> counts;  ///< the second makes an input about four times as large
    std::vector<std::string> command;
    int exitCode;
    const char* option = "--host";
    /// Its memory is what a limit allows, or the classes and instances that MOF defines.
    bool isLimited = exitCode == 1;
};

constexpr int runs = 3;            ///< of which the cheapest counts
constexpr double mostGrowth = 2;   ///< all costs are claimed to be proportional to the size
constexpr double mostMemory = 20;  ///< bytes for each byte

const std::vector<std::string> mof{"classes", "--host", "empty.json"};
constexpr const char* installed = "--installed";

const std::vector<Input> inputs{
    {"empty rows", EmptyRows, {50'000, 200'000}, {"sources"}, 3},
    {"rows of one number", RowsOfOneNumber, {50'000, 200'000}, {"sources"}, 3},
    {"rows of a class with a long name", LongClassName, {25'000, 100'000}, {"sources"}, 3},
    {"namespaces", ManyNamespaces, {20'000, 80'000}, {"sources"}, 3},
    {"classes", ManyClasses, {5'000, 20'000}, {"sources"}, 3},
    {"properties of a row", ManyProperties, {20'000, 80'000}, {"sources"}, 3},
    {"keys of a path", ManyKeys, {20'000, 80'000}, {"sources"}, 3},
    {"disks with equal IDs",
     EqualDisks,
     {400, 1'600},
     {"enumerate", "QV_SATADiskDriveStorageExtent"},
     1},
    {"disks with equal paths",
     DisksWithOnePath,
     {400, 1'600},
     {"enumerate", "QV_SATAStorageExtent"},
     1},
    {"paths of disks with equal IDs",
     EqualDisks,
     {400, 1'600},
     {"enumerate", "QV_SATAInitiatorTargetLogicalUnitPath"},
     1},
    {"disks whose IDs begin each other", DisksOfOneBeginning, {340, 750}, {"disks"}, 3},
    {"verdicts on disks with equal IDs", EqualDisks, {400, 1'600}, {"explain"}, 3, "--host", true},
    {"warnings of disks with equal IDs", EqualDisks, {400, 1'600}, {"disks"}, 3},
    {"disks with media", DisksWithMedia, {500, 2'000}, {"check"}, 3, "--host", true},
    {"a page of disks with media",
     DisksWithMedia,
     {500, 2'000},
     {"report", "-o", "page.html"},
     3,
     "--host",
     true},
    {"a recording of disks with media",
     DisksWithMedia,
     {500, 2'000},
     {"capture", "--redact", "-o", "out.json"},
     3,
     "--host",
     true},
    {"a large recording", LargeRecording, {50'000, 200'000}, {"sources"}, 3},
    {"a chain of classes in MOF", ClassChain, {2'000, 8'000}, mof, 1, installed},
    {"subclasses of 1,000 properties",
     SubclassesOfManyProperties,
     {10'000, 40'000},
     mof,
     3,
     installed,
     true},
    {"subclasses of 200 keys", SubclassesOfManyKeys, {10'000, 40'000}, mof, 3, installed, true},
    {"subclasses of a chain", SubclassesOfAChain, {10'000, 40'000}, mof, 3, installed, true},
    {"properties of a MOF class", ManyPropertiesOfAClass, {10'000, 40'000}, mof, 1, installed},
    {"qualifiers of a MOF property", ManyQualifiers, {20'000, 80'000}, mof, 1, installed},
    {"classes that MOF removes", RemovedClasses, {10'000, 40'000}, mof, 3, installed, true},
    {"instances in MOF", ManyInstances, {10'000, 40'000}, mof, 3, installed, true},
    {"instances of 1,000 properties",
     InstancesOfManyProperties,
     {10'000, 40'000},
     mof,
     3,
     installed,
     true},
};

struct Cost {
    double seconds;
    double bytes;
};

double Seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

/// Runs a command without output; returns its cost. Ends this program if the command ends otherwise
/// than expected.
Cost RunOnce(std::vector<std::string> command, int exitCode) {
    std::vector<char*> arguments;
    std::ranges::transform(command, std::back_inserter(arguments),
                           [](std::string& one) { return one.data(); });
    arguments.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDOUT_FILENO);
        dup2(nowhere, STDERR_FILENO);
        execv(arguments.front(), arguments.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    if (!WIFEXITED(status) || WEXITSTATUS(status) != exitCode) {
        std::printf("%s: ended with status %d\n", command[1].c_str(), status);
        std::exit(1);
    }
    return {Seconds(usage.ru_utime) + Seconds(usage.ru_stime),
            static_cast<double>(usage.ru_maxrss) * 1024};
}

/// Returns the least cost of several runs: others use the machine, too.
Cost Run(const std::vector<std::string>& command, int exitCode) {
    Cost least = RunOnce(command, exitCode);
    for (int run = 1; run < runs; ++run) {
        const Cost cost = RunOnce(command, exitCode);
        least = {std::min(least.seconds, cost.seconds), std::min(least.bytes, cost.bytes)};
    }
    return least;
}

}  // namespace

int main(int count, char** given) {
    if (count != 3) {
        return 2;
    }
    const std::string program = std::filesystem::absolute(given[1]);
    std::filesystem::current_path(given[2]);
    std::ofstream("empty.json") << Recording("");
    const Cost base = Run({program, "sources", "--host", "empty.json"}, 3);
    std::printf("%-34s %10s %10s %8s %8s\n", "input", "bytes", "seconds", "growth", "memory");
    bool isNear = true;
    for (const Input& input : inputs) {
        std::array<double, 2> perByte{};
        double memory = 0;  // of the input measured last, which is the larger one
        for (std::size_t size = 0; size < 2; ++size) {
            const std::string text = input.text(input.counts[size]);
            std::ofstream("input", std::ios::binary) << text;
            std::vector<std::string> command = input.command;
            command.insert(command.begin(), program);
            command.insert(command.end(), {input.option, "input"});
            const Cost cost = Run(command, input.exitCode);
            const auto bytes = static_cast<double>(text.size());
            perByte[size] = std::max(cost.seconds - base.seconds, 1e-3) / bytes;
            std::printf("%-34s %10.0f %10.3f", size == 0 ? input.name : "", bytes, cost.seconds);
            memory = std::max(cost.bytes - base.bytes, 0.0) / bytes;
            if (size != 0) {
                std::printf(" %8.2f %8.1f", perByte[1] / perByte[0], memory);
            }
            std::printf("\n");
        }
        isNear = isNear && perByte[1] <= mostGrowth * perByte[0] &&
                 (input.isLimited || memory <= mostMemory);
    }
    return isNear ? 0 : 1;
}
