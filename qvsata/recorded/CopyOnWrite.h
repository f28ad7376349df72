#pragma once

#include <memory>

namespace qv::service {

/// A value that copies share until one of them changes it. As long as it was not changed it is
/// `Value()` and takes no memory of its own.
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
