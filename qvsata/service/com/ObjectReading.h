#pragma once

#include <windows.h>

#include <wbemcli.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "qvsata/service/Wql.h"
#include "qvsata/service/com/ReadableObject.h"

namespace qv::service {

/// A property of any management object, system properties included; nothing when it cannot be
/// read. An embedded object is read as null.
std::optional<ObjectProperty> ReadProperty(IWbemClassObject& object, std::string_view name);

/// All properties of any management object, in its order, without system properties.
std::vector<ObjectProperty> ReadProperties(IWbemClassObject& object);

/// The text of a property; empty when there is none.
std::string ReadText(IWbemClassObject& object, std::string_view name);

/// Reads the object's properties for the condition of a query, while the object lives.
PropertyReader ReaderOf(IWbemClassObject& object);

}  // namespace qv::service
