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

/// A namespace: classes, and sources of their instances. It answers as the management service does.
/// A source may ask it while it is being asked itself, and any number of threads may ask.
class Namespace final : public Services {
public:
    using Sources = std::vector<std::shared_ptr<const InstanceSource>>;

    /// `name` is the spelling that __NAMESPACE and __PATH repeat. The sources are asked in order.
    Namespace(std::string name, NamespaceClasses classes, Sources sources = {});

    const std::string& Name() const { return name_; }
    const NamespaceClasses& Classes() const { return classes_; }

    /// Makes `source` the provider of the namespace, asked before all other sources; null for none.
    void Attach(std::shared_ptr<const InstanceSource> source);

    /// Also `invalidObjectPath` for a text that is no path and `notFound` for an unknown class.
    Answer Get(std::string_view text) const override;

    /// `invalidClass` for an unknown class.
    Answer Enumerate(std::string_view className) const override;

    /// SELECT on instances or on meta_class, ASSOCIATORS OF, REFERENCES OF. A SELECT is offered to
    /// the sources first. `invalidQuery` for a text that is no query.
    Answer Query(std::string_view wql) const override;
    Answer Query(const AssociatorsQuery& query) const;
    Answer Query(const ReferencesQuery& query) const;

    /// Returns an instance whatever the order and spelling of the keys: looked up among the
    /// instances of the class and then fetched with the path that its provider itself forms.
    Answer GetInAnyOrder(std::string_view text) const;

    /// Returns the sources of the instances of exactly this class.
    Sources SourcesOf(const ResolvedClassPtr& type) const;

private:
    Answer Select(std::string_view wql, const SelectQuery& query) const;
    Answer SelectClasses(const SelectQuery& query) const;

    /// Asks the sources for the instances of a class and of its subclasses: ask(source, class)
    /// returns an answer, of which the first that failed ends the asking.
    template <typename Ask>
    Answer AskSources(std::string_view className, Ask ask) const;

    std::string name_;
    NamespaceClasses classes_;
    Sources sources_;
    mutable std::mutex mutex_;  ///< guards provider_
    std::shared_ptr<const InstanceSource> provider_;
};

}  // namespace qv::service
