#include "Place.h"

namespace Estimate {
namespace {

void Append(Message& text, const Message& part) {
    text = text.empty() ? part : Say<Text::Listed>(text, part);
}

}  // namespace

Message PlaceText(const Place& place) {
    Message text;
    if (place.line > 0)
        Append(text, Say<Text::PlaceLine>(place.line));
    if (place.variable > 0)
        Append(text, Say<Text::PlaceVariable>(place.variable));
    if (place.item > 0)
        Append(text, Say<Text::PlaceItem>(place.item));
    if (place.quota > 0)
        Append(text, Say<Text::PlaceQuota>(place.quota));
    return text;
}

Message AtPlace(const Place& place) {
    const Message text = PlaceText(place);
    return place.line > 0 ? Say<Text::OnPlace>(text) : Say<Text::AtPlace>(text);
}

}  // namespace Estimate
