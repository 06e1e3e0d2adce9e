#include "Place.h"

#include <string_view>

namespace Estimate {
namespace {

void Append(std::string& text, std::string_view what, std::size_t number) {
    if (number > 0)
        text.append(text.empty() ? "" : ", ").append(what).append(std::to_string(number));
}

}  // namespace

std::string PlaceText(const Place& place) {
    std::string text;
    Append(text, "line ", place.line);
    Append(text, "variable ", place.variable);
    Append(text, "item ", place.item);
    Append(text, "quota ", place.quota);
    return text;
}

std::string AtPlace(const Place& place) {
    return (place.line > 0 ? "on " : "at ") + PlaceText(place);
}

}  // namespace Estimate
