#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "qvsata/cim/Instance.h"
#include "qvsata/hosting/ManagementHost.h"
#include "qvsata/recorded/HostFile.h"
#include "tests/golden/GoldenText.h"
#include "tests/support/ExpectedCatalogue.h"
#include "tests/support/windows/RecordedOptions.h"

namespace qv::test {

/// A put that the instance's class refused.
struct RefusedPut {
    std::string property;  ///< Class.Property
    service::VariantType variantType = 0;
    service::CimValue value;
};

/// The library in the embedded management service, on a recorded host.
class PublishingHost {
public:
    explicit PublishingHost(service::RecordedHost recorded)
        : prefix_(NamespacePrefix(recorded.Computer().server)),
          host_(RecordedOptions(std::make_shared<const service::RecordedHost>(std::move(recorded)),
                                QV_LIBRARY)) {}
    explicit PublishingHost(const std::filesystem::path& file)
        : PublishingHost(service::ReadHostFile(file)) {}

    service::ManagementHost& Host() { return host_; }
    const service::Namespace& Published() const { return host_.Published(); }
    const std::string& Prefix() const { return prefix_; }

    /// Returns the instances of one class, as the sink received them.
    PublishedInstances Publish(std::string_view className) {
        PublishedInstances published{std::string(className), {}};
        const service::ProviderAnswer answer = host_.Provider().Enumerate(className);
        EXPECT_EQ(answer.Status(), S_OK) << className;
        for (const auto& object : answer.objects) {
            published.instances.push_back(Read(dynamic_cast<const service::Instance&>(*object)));
        }
        return published;
    }

    std::vector<PublishedInstances> PublishAll() {
        std::vector<PublishedInstances> all;
        for (const std::string& className : ExpectedClassNames()) {
            all.push_back(Publish(className));
        }
        return all;
    }

    /// Returns the refused puts so far, in order.
    const std::vector<RefusedPut>& Refused() const { return refused_; }

private:
    PublishedInstance Read(const service::Instance& object) {
        PublishedInstance instance{object.ClassName(), {}};
        for (const service::PutCall& put : object.Puts()) {
            const auto* definition = object.Class()->Find(put.name);
            instance.properties.push_back(
                {put.name, put.variantType, put.value, definition != nullptr && definition->isKey});
            if (!Succeeded(put.result)) {
                refused_.push_back(
                    {instance.className + '.' + put.name, put.variantType, put.value});
            }
        }
        return instance;
    }

    std::string prefix_;
    service::ManagementHost host_;
    std::vector<RefusedPut> refused_;
};

}  // namespace qv::test
