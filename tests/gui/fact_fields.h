// The fields of the facts base's dialog as a record of it.
#pragma once

#include "resources/core/fact.h"
#include "shell/core/record_text.h"
#include "shell/services/ZENTRIK.h"
#include "tests/gui/driver/dialog.h"

#include <charconv>

namespace gui {

// A number as a user types it: no digit more than it needs.
inline std::string Typed(double value) {
    char text[32];
    return std::string(text, std::to_chars(text, text + sizeof text, value).ptr);
}

// Fills every field but the identifier, which the program proposes.
inline void TypeFact(Dialog& dialog, const Dat& fact) {
    dialog.SetText(KNOW_NAME, Text(fact.Name));
    dialog.SetText(KNOW_DESCRIPTION, Text(fact.Description));
    dialog.SetText(KNOW_TYPE, Text(fact.KnowType));
    dialog.SetText(KNOW_UNIT, Text(fact.Units));
    dialog.SetText(KNOW_LOWER_LIMIT, Typed(fact.inf_limit));
    dialog.SetText(KNOW_HIGHER_LIMIT, Typed(fact.sup_limit));
    dialog.SetText(KNOW_STEP, Typed(fact.Step));
    dialog.SetText(KNOW_INTERVAL, Typed(fact.Interval));
    dialog.SetText(KNOW_LOWEST, Typed(fact.lowest));
    dialog.SetText(KNOW_LOW, Typed(fact.low));
    dialog.SetText(KNOW_NORMAL, Typed(fact.normal));
    dialog.SetText(KNOW_HIGH, Typed(fact.high));
    dialog.SetText(KNOW_HIGHEST, Typed(fact.highest));
}

} // namespace gui
