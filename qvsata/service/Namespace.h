#pragma once

#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/cim/ObjectPath.h"
#include "qvsata/service/InstanceSource.h"
#include "qvsata/service/NamespaceClasses.h"
#include "qvsata/service/Services.h"
#include "qvsata/wql/Wql.h"

namespace qv::service {

/// A namespace: classes and sources of their instances. It answers as the management service does.
/// Any number of threads may call it, and a source may call it while it answers itself.
class Namespace final : public Services {
public:
    using Sources = std::vector<std::shared_ptr<const InstanceSource>>;

    /// `name` is the spelling in __NAMESPACE and __PATH. The sources are asked in order.
    Namespace(std::string name, NamespaceClasses classes, Sources sources = {});

    const std::string& Name() const { return name_; }
    const NamespaceClasses& Classes() const { return classes_; }

    /// Makes `source` the provider of the namespace, which is asked before all other sources; null
    /// removes it.
    void Attach(std::shared_ptr<const InstanceSource> source);

    /// Returns why a path is not of this namespace, as a phrase; empty if it is, or names none.
    std::string WhyForeign(const ObjectPath& path) const;

    /// Fails with `invalidObjectPath` for a text that is not a path or a path into another
    /// namespace, `notFound` for an unknown class.
    Answer Get(std::string_view text) const override;

    /// Fails with `invalidClass` for an unknown class.
    Answer Enumerate(std::string_view className) const override;

    /// Runs a SELECT on instances or on meta_class, ASSOCIATORS OF or REFERENCES OF. A SELECT on
    /// instances is first offered to the sources. Fails with `invalidQuery` for a text that is not
    /// a query, or that names a property or reference that no class has; with `invalidClass` for an
    /// unknown class.
    Answer Query(std::string_view wql) const override;
    FoundObject FindText(std::string_view className, std::string_view property,
                         std::string_view text) const override;
    Answer Query(const AssociatorsQuery& query) const;
    Answer Query(const ReferencesQuery& query) const;

    /// Returns an instance by path, with its keys in any order and spelling. It finds the instance
    /// among those of its class and gets it with the path that the provider itself forms.
    Answer GetInAnyOrder(std::string_view text) const;

    /// Returns the sources of the instances of exactly this class.
    Sources SourcesOf(const ResolvedClassPtr& type) const;

private:
    Answer Select(std::string_view wql, const SelectQuery& query) const;
    Answer SelectClasses(const SelectQuery& query) const;

    /// Throws WqlError if a query does not fit the class `definition` that it selects from.
    void Check(const SelectQuery& query, const Object& definition) const;

    /// Asks the sources for the instances of a class and its subclasses: ask(source, class) returns
    /// an answer. The first failed answer ends the loop and is returned.
    template <typename Ask>
    Answer AskSources(std::string_view className, Ask ask) const;

    std::string name_;
    NamespaceClasses classes_;
    Sources sources_;
    mutable std::mutex mutex_;  ///< guards provider_
    std::shared_ptr<const InstanceSource> provider_;
};

}  // namespace qv::service
