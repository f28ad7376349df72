#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/service/ClassRepository.h"
#include "qvsata/service/ObjectPath.h"
#include "qvsata/service/Wql.h"
#include "qvsata/service/com/Answer.h"
#include "qvsata/service/com/ProviderObject.h"
#include "qvsata/service/com/ResolvedClass.h"

namespace qv::service {

/// The namespace whose classes the provider serves: class definitions from a repository, instances
/// of dynamic classes from the provider, instances that the MOF states from the repository. Answers
/// as the management service does; the provider may ask it while it is being asked itself, and any
/// number of threads may.
class EmbeddedNamespace {
public:
    /// `nameSpace` is the spelling that __NAMESPACE and __PATH repeat.
    EmbeddedNamespace(ClassRepository classes, std::string nameSpace, std::string server);

    const std::string& Name() const { return nameSpace_; }

    /// Who serves the dynamic classes from now on; null for nobody: they then have no instances.
    void Attach(std::shared_ptr<const ProviderObject> provider);

    /// The classes of the MOF in the order of their definition.
    const ClassRepository& Classes() const { return classes_; }

    /// A class; null when there is none of that name.
    ResolvedClassPtr FindClass(std::string_view className) const;

    /// The dynamic classes that are, or derive from, a class.
    std::vector<std::string> ServedClasses(std::string_view className) const;

    /// Whether a class itself is dynamic: the provider makes its instances.
    bool IsServed(std::string_view className) const;

    /// The instances of a class and of its subclasses. WBEM_E_INVALID_CLASS for an unknown class.
    Answer Enumerate(std::string_view className) const;

    /// A class definition or an instance by its path, which reaches the provider as it is written.
    Answer Get(std::string_view text) const;

    /// An instance whatever the order and spelling of the keys: looked up among the instances of
    /// the class and then fetched from the provider with the path that the provider itself forms.
    Answer GetInAnyOrder(std::string_view text) const;

    /// SELECT on instances or on meta_class, ASSOCIATORS OF, REFERENCES OF. A SELECT on a class of
    /// the provider is offered to the provider first and, when it refuses queries, answered by
    /// enumerating and filtering.
    Answer Query(std::string_view wql) const;

private:
    std::shared_ptr<const ProviderObject> Provider() const;
    Answer EnumerateServed(const std::string& className) const;
    Answer Select(std::string_view wql, const SelectQuery& query) const;
    Answer SelectClasses(const SelectQuery& query) const;
    Answer SelectServed(std::string_view wql, const std::string& className) const;
    void AppendStated(std::string_view className, ObjectList& objects) const;

    ClassRepository classes_;
    std::string nameSpace_;
    std::string server_;
    std::map<std::string, ResolvedClassPtr, std::less<>> resolved_;  ///< by name in lower case
    std::vector<std::string> served_;
    mutable std::mutex mutex_;  ///< guards provider_
    std::shared_ptr<const ProviderObject> provider_;
};

}  // namespace qv::service
