#include "qvsata/service/Services.h"

#include <algorithm>
#include <utility>

namespace qv::service {

FoundObject Services::FindText(std::string_view className, std::string_view property,
                               std::string_view text) const {
    Answer answer = Query(SelectAll(className));
    const std::size_t count = answer.objects.size();
    const auto found = std::ranges::find_if(
        answer.objects, [&](const ObjectPtr& object) { return TextOf(*object, property) == text; });
    answer.objects = found == answer.objects.end() ? ObjectList() : ObjectList{*found};
    return {std::move(answer), count};
}

}  // namespace qv::service
