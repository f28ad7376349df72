#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>

#include "qvsata/recorded/RecordedClass.h"

namespace qv::service {

/// A recorded namespace. Its classes keep the order of the recording.
class RecordedNamespace {
public:
    explicit RecordedNamespace(std::string name) : name_(std::move(name)) {}

    /// Returns the namespace's name, with backslashes and without a server.
    const std::string& Name() const { return name_; }
    const std::deque<RecordedClass>& Classes() const { return classes_; }

    /// Returns a class by name, ignoring case; null if it was not recorded.
    const RecordedClass* Find(std::string_view className) const;
    /// Returns the class of that name; creates it if it is missing.
    RecordedClass& Class(std::string_view className);

private:
    std::string name_;
    std::deque<RecordedClass> classes_;
    std::unordered_map<std::string, std::size_t> byName_;  ///< folded name to position
};

}  // namespace qv::service
