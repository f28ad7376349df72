#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "qvsata/recorded/CopyOnWrite.h"
#include "qvsata/recorded/HashIndex.h"
#include "qvsata/recorded/RecordedClass.h"

namespace qv::service {

/// A recorded namespace. Its classes keep the order of the recording.
class RecordedNamespace {
public:
    explicit RecordedNamespace(std::string name) : name_(std::move(name)) {}

    /// Returns the namespace's name, with backslashes and without a server.
    const std::string& Name() const { return name_; }
    const std::vector<RecordedClass>& Classes() const { return content_.Read().classes; }

    /// Returns a class by name, ignoring case; null if it was not recorded.
    const RecordedClass* Find(std::string_view className) const;
    /// Returns the class of that name, which is valid until the next call; creates it if it is
    /// missing.
    RecordedClass& Class(std::string_view className);

private:
    struct Content {
        std::vector<RecordedClass> classes;
        HashIndex byName;  ///< by the folded name
    };

    std::string name_;
    CopyOnWrite<Content> content_;
};

}  // namespace qv::service
