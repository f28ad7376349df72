#pragma once

#include <memory>
#include <stdexcept>
#include <string>

#include "qvsata/commands/Options.h"
#include "qvsata/service/ProviderHost.h"

namespace qv::tool {

/// What ends a command: the message is one line, without the program's name.
class CommandError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Starts the embedded management service as the options say. Raises CommandError and the errors
/// of HostFileError, MofError and std::system_error, whose messages name the file.
std::unique_ptr<service::ProviderHost> StartSession(const Options& options);

/// The answer's objects; raises CommandError when it is a failure.
service::ObjectList Take(service::Answer answer);

}  // namespace qv::tool
