#include "resources/core/fact_texts.h"

#include "resources/core/numbers.h"
#include "shell/core/record_text.h"

FactTexts TextsOf(const Dat& fact) {
    FactTexts texts;
    texts.name = Text(fact.Name);
    texts.description = Text(fact.Description);
    texts.type = Text(fact.KnowType);
    texts.unit = Text(fact.Units);
    texts.lower_limit = NumberText(fact.inf_limit);
    texts.higher_limit = NumberText(fact.sup_limit);
    texts.step = NumberText(fact.Step);
    texts.interval = NumberText(fact.Interval);
    texts.lowest = NumberText(fact.lowest);
    texts.low = NumberText(fact.low);
    texts.normal = NumberText(fact.normal);
    texts.high = NumberText(fact.high);
    texts.highest = NumberText(fact.highest);
    texts.ident = NumberText(fact.Ident);
    return texts;
}

Dat FactOf(const FactTexts& texts) {
    Dat fact{};
    SetText(fact.Name, texts.name);
    SetText(fact.Description, texts.description);
    SetText(fact.KnowType, texts.type);
    SetText(fact.Units, texts.unit);
    fact.inf_limit = NumberIn(texts.lower_limit);
    fact.sup_limit = NumberIn(texts.higher_limit);
    fact.Step = NumberIn(texts.step);
    fact.Interval = WholeNumberIn(texts.interval);
    fact.lowest = NumberIn(texts.lowest);
    fact.low = NumberIn(texts.low);
    fact.normal = NumberIn(texts.normal);
    fact.high = NumberIn(texts.high);
    fact.highest = NumberIn(texts.highest);
    fact.Ident = WholeNumberIn(texts.ident);
    return fact;
}
