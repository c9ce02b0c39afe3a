// The facts base editor in the process, and what its tests share.
#pragma once

#include "dialog_test.h"
#include "tests/core/core_test.h"

#include "resources/core/fact.h"
#include "resources/facts_base.h"
#include "resources/knowledge_types.h"
#include "shell/services/ZENTRIK.h"

namespace zentrik_test {

using Texts = std::vector<std::string>;

inline Dat Fact(const std::string& name, int ident) {
    Dat fact{};
    SetText(fact.Name, name);
    SetText(fact.KnowType, "ACTION");
    fact.Ident = ident;
    return fact;
}

class FactsBase : public testing::Test {
protected:
    FactsBase() {
        SetText(KnowFileName, temp.Path("base.fac"));
        // Opening an existing base forgets a replacement that is still pending.
        Open({Fact("a", 1)});
        ShownDialog("Knowledge_Box", KnowledgeNew);
    }

    void Open(const std::vector<Dat>& facts) {
        temp.Put("base.fac", BytesOf(facts));
        KTyp = 1;
    }

    std::vector<Dat> Facts() const {
        std::vector<Dat> facts;
        ReadRecords(KnowFileName, files::Mode::Read, facts);
        return facts;
    }
    Texts Names() const {
        Texts names;
        for (const Dat& fact : Facts())
            names.push_back(Text(fact.Name));
        return names;
    }
    int Ident(std::size_t fact) const { return int{Facts().at(fact).Ident}; }

    static void Add(const DialogHandle& dialog, const std::string& name,
                    const std::string& type = "ACTION") {
        dialog.Put(KNOW_NAME, name);
        dialog.Put(KNOW_TYPE, type);
        dialog.Press(IDOK);
    }

    void ExpectOneBox(const std::string& text, Buttons buttons = Buttons::Ok) {
        ASSERT_EQ(boxes.messages.size(), 1u);
        const Message& box = boxes.messages.front();
        EXPECT_EQ(box.text, text);
        EXPECT_EQ(box.caption, "New Fact");
        EXPECT_EQ(box.icon, Icon::Exclamation);
        EXPECT_EQ(box.buttons, buttons);
        boxes.messages.clear();
        boxes.shown.clear();
    }

    TempFolder temp;
    Boxes boxes{Answer::Yes};
};

} // namespace zentrik_test
