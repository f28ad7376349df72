#pragma once

#include <memory>

namespace qv::service {

/// A value that copies share until one of them changes it. Until its first change it equals
/// `Value()` and allocates nothing.
template <typename Value>
class CopyOnWrite {
public:
    const Value& Read() const {
        static const Value unchanged{};
        return value_ ? *value_ : unchanged;
    }

    Value& Change() {
        if (!value_ || value_.use_count() != 1) {
            value_ = std::make_shared<Value>(Read());
        }
        return *value_;
    }

private:
    std::shared_ptr<Value> value_;
};

}  // namespace qv::service
