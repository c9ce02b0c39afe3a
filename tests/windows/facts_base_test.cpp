// The facts base editor over sound files.
#include "facts_base_fixture.h"

namespace {

using namespace zentrik_test;

constexpr int kFields[] = {KNOW_NAME,     KNOW_DESCRIPTION, KNOW_TYPE,         KNOW_UNIT,
                           KNOW_STEP,     KNOW_LOWER_LIMIT, KNOW_HIGHER_LIMIT, KNOW_LOWEST,
                           KNOW_INTERVAL, KNOW_LOW,         KNOW_NORMAL,       KNOW_HIGH,
                           KNOW_HIGHEST};

TEST_F(FactsBase, ANewOneIsCreatedEmptyAndProposesOne) {
    temp.Put("base.typ", std::string("OWN") + std::string(47, '\0'));
    KTyp = 0;
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    EXPECT_EQ(temp.Content("base.fac"), "");
    EXPECT_TRUE(dialog.Rows(KNOW_FACTS).empty());
    EXPECT_EQ(dialog.Rows(KNOW_TYPES), (Texts{"DETECTION", "DIAGNOSTIC", "ACTION"}));
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "1");
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FactsBase, AnExistingOneIsListedInRecordOrder) {
    Open({Fact("c", 1), Fact("a", 20), Fact("b", 7)});
    temp.Put("base.typ", std::string("OWN") + std::string(47, '\0') + "cut");
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), (Texts{"c", "a", "b"}));
    EXPECT_EQ(dialog.Rows(KNOW_TYPES), (Texts{"DETECTION", "DIAGNOSTIC", "ACTION", "OWN"}));
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "8");
}

TEST_F(FactsBase, OfOneFactProposesTwoWhateverItsIdentifier) {
    Open({Fact("a", 41)});
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "2");
}

TEST_F(FactsBase, OfNoBytesIsEmpty) {
    Open({});
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    EXPECT_TRUE(dialog.Rows(KNOW_FACTS).empty());
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "2");
    Add(dialog, "first");
    EXPECT_EQ(Names(), Texts{"first"});
}

TEST_F(FactsBase, ThatIsMissingIsCreated) {
    files::Remove(KnowFileName);
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    EXPECT_TRUE(files::Exists(KnowFileName));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FactsBase, AnAddedFactIsWrittenAtOnceWithEveryField) {
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    dialog.Put(KNOW_DESCRIPTION, "of the oven");
    dialog.Put(KNOW_UNIT, "C");
    dialog.Put(KNOW_LOWER_LIMIT, "-10.5");
    dialog.Put(KNOW_HIGHER_LIMIT, "1e3");
    dialog.Put(KNOW_STEP, ".5");
    dialog.Put(KNOW_INTERVAL, "60.9");
    dialog.Put(KNOW_LOWEST, "1");
    dialog.Put(KNOW_LOW, "2");
    dialog.Put(KNOW_NORMAL, "warm");
    dialog.Put(KNOW_HIGH, "4");
    dialog.Put(KNOW_HIGHEST, "5");
    Add(dialog, "Temp", "detection");
    Dat want{};
    SetText(want.Name, "Temp");
    SetText(want.Description, "of the oven");
    SetText(want.KnowType, "detection"); // accepted against "DETECTION", stored as typed
    SetText(want.Units, "C");
    want.inf_limit = -10.5;
    want.sup_limit = 1000;
    want.Step = 0.5;
    want.Interval = 60;
    want.lowest = 1;
    want.low = 2;
    want.high = 4;
    want.highest = 5;
    want.Ident = 2;
    EXPECT_EQ(temp.Content("base.fac"),
              std::string(BytesOf(Fact("a", 1))) + std::string(BytesOf(want)));
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), (Texts{"a", "Temp"}));
    for (int field : kFields)
        EXPECT_EQ(dialog.Text(field), "") << field;
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "3");
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FactsBase, AFactNeedsAName) {
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    Add(dialog, "");
    ExpectOneBox("Name must be defined");
    EXPECT_EQ(Names(), Texts{"a"});
    EXPECT_EQ(dialog.Text(KNOW_TYPE), "ACTION");
}

TEST_F(FactsBase, AFactNeedsAType) {
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    Add(dialog, "b", "");
    ExpectOneBox("Type must be defined");
    Add(dialog, "b", "ACTIONS");
    ExpectOneBox("Fats Type not defined");
    EXPECT_EQ(Names(), Texts{"a"});
    EXPECT_EQ(dialog.Text(KNOW_NAME), "b");
}

TEST_F(FactsBase, AnotherIdentifierOfANewFactIsPutBack) {
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    dialog.Put(KNOW_IDENT, "77");
    Add(dialog, "b", "NONE");
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "2");
    dialog.Put(KNOW_IDENT, "77");
    Add(dialog, "b");
    EXPECT_EQ(Ident(1), 2);
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "3");
}

TEST_F(FactsBase, ANewFactReceivesAnIdentifierTooLongToShow) {
    Open({Fact("a", 1), Fact("b", 123455)});
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    Add(dialog, "c");
    Add(dialog, "d");
    EXPECT_EQ(Ident(2), 123456);
    EXPECT_EQ(Ident(3), 123457);
}

TEST_F(FactsBase, AListedNameInAnyLetterCaseIsReplacedAfterYes) {
    Open({Fact("a", 1), Fact("b", 5), Fact("c", 7)});
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    dialog.Put(KNOW_IDENT, "5");
    Add(dialog, "B", "DIAGNOSTIC");
    ExpectOneBox("Fats already exist, modify?", Buttons::YesNo);
    EXPECT_EQ(Names(), (Texts{"a", "B", "c"}));
    EXPECT_EQ(Text(Facts()[1].KnowType), "DIAGNOSTIC");
    EXPECT_EQ(Ident(1), 5);
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), (Texts{"a", "B", "c"}));
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "8");
    Add(dialog, "d");
    EXPECT_EQ(Names(), (Texts{"a", "B", "c", "d"}));
}

TEST_F(FactsBase, AReplacedFactThatTakesTheProposedIdentifierUsesItUp) {
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    Add(dialog, "a");
    EXPECT_EQ(Ident(0), 2);
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "3");
}

TEST_F(FactsBase, NothingChangesAfterNo) {
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    const std::string before = temp.Content("base.fac");
    {
        Boxes no{Answer::No};
        Add(dialog, "A", "DIAGNOSTIC");
        EXPECT_EQ(no.shown, Texts{"New Fact: Fats already exist, modify?"});
    }
    EXPECT_EQ(temp.Content("base.fac"), before);
    EXPECT_EQ(dialog.Text(KNOW_NAME), "A");
    Add(dialog, "b");
    EXPECT_EQ(Names(), (Texts{"a", "b"}));
}

TEST_F(FactsBase, ARefusedReplacementStaysPendingForTheNextAdd) {
    Open({Fact("a", 1), Fact("b", 5)});
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    Add(dialog, "b", "NONE");
    Add(dialog, "other");
    EXPECT_EQ(Names(), (Texts{"a", "other"}));
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), (Texts{"a", "other"}));
    Add(dialog, "third");
    EXPECT_EQ(Names(), (Texts{"a", "other", "third"}));
}

TEST_F(FactsBase, APendingReplacementGoesToTheFirstFactAfterOneWasShown) {
    Open({Fact("a", 1), Fact("b", 5)});
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    Add(dialog, "b", "NONE");
    dialog.DoubleClick(KNOW_FACTS, 1);
    Add(dialog, "other");
    EXPECT_EQ(Names(), (Texts{"other", "b"}));
}

TEST_F(FactsBase, APendingReplacementOfAFactThatIsGoneAppends) {
    Open({Fact("a", 1), Fact("b", 5), Fact("c", 6)});
    {
        ShownDialog dialog("Knowledge_Box", KnowledgeNew);
        Add(dialog, "c", "NONE");
    }
    KTyp = 0; // only opening an existing base forgets what is pending
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    Add(dialog, "first");
    EXPECT_EQ(Names(), Texts{"first"});
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), Texts{"first"});
}

TEST_F(FactsBase, ADoubleClickedFactIsReadFromTheFile) {
    Dat fact = Fact("b", 5);
    SetText(fact.Description, "text");
    fact.normal = 36.6;
    fact.Interval = 10;
    Open({Fact("a", 1), fact});
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    fact.highest = 1e6;
    temp.Put("base.fac", BytesOf(std::vector<Dat>{Fact("a", 1), fact}));
    dialog.DoubleClick(KNOW_FACTS, 1);
    EXPECT_EQ(dialog.Text(KNOW_NAME), "b");
    EXPECT_EQ(dialog.Text(KNOW_DESCRIPTION), "text");
    EXPECT_EQ(dialog.Text(KNOW_TYPE), "ACTION");
    EXPECT_EQ(dialog.Text(KNOW_NORMAL), "36.6");
    EXPECT_EQ(dialog.Text(KNOW_INTERVAL), "10");
    EXPECT_EQ(dialog.Text(KNOW_HIGHEST), "1e+06");
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "5");
}

TEST_F(FactsBase, ADoubleClickedTypeIsTaken) {
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    dialog.DoubleClick(KNOW_TYPES, 1);
    EXPECT_EQ(dialog.Text(KNOW_TYPE), "DIAGNOSTIC");
}

TEST_F(FactsBase, RemoveTakesTheRecordOut) {
    Open({Fact("a", 1), Fact("b", 5), Fact("c", 6)});
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    dialog.Press(KNOW_REMOVE); // nothing is selected
    EXPECT_EQ(Names().size(), 3u);
    dialog.Select(KNOW_FACTS, 1);
    dialog.Press(KNOW_REMOVE);
    EXPECT_EQ(Names(), (Texts{"a", "c"}));
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), (Texts{"a", "c"}));
    EXPECT_TRUE(boxes.shown.empty());
}

TEST_F(FactsBase, RemovingTheOnlyFactDeletesTheBaseAndItsTypes) {
    temp.Put("base.typ", std::string(50, 'T'));
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    dialog.Select(KNOW_FACTS, 0);
    dialog.Press(KNOW_REMOVE);
    EXPECT_FALSE(files::Exists(KnowFileName));
    EXPECT_FALSE(files::Exists(temp.Path("base.typ").c_str()));
    EXPECT_TRUE(dialog.Rows(KNOW_FACTS).empty());
    Add(dialog, "again");
    EXPECT_EQ(Names(), Texts{"again"});
}

TEST_F(FactsBase, CloseAndTheCloseBoxAndEscEndIt) {
    const std::string before = temp.Content("base.fac");
    for (int id : {KNOW_CLOSE, IDCANCEL}) {
        ShownDialog dialog("Knowledge_Box", KnowledgeNew);
        dialog.Put(KNOW_NAME, "unsaved");
        EXPECT_TRUE(dialog.IsOpen());
        dialog.Press(id);
        EXPECT_FALSE(dialog.IsOpen());
    }
    DialogSteps steps;
    steps.When("Facts Base", [](const DialogHandle& dialog) { dialog.CloseBox(); });
    EXPECT_EQ(RunDialog(nullptr, "Knowledge_Box", KnowledgeNew), 0);
    EXPECT_EQ(temp.Content("base.fac"), before);
}

TEST_F(FactsBase, OfTwoFactsWithOneNameReplacesTheFirst) {
    Open({Fact("a", 1), Fact("twin", 5), Fact("twin", 6)});
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    Add(dialog, "TWIN", "DETECTION");
    EXPECT_EQ(Names(), (Texts{"a", "TWIN", "twin"}));
    EXPECT_EQ(dialog.Rows(KNOW_FACTS), (Texts{"a", "TWIN", "twin"}));
    EXPECT_EQ(Text(Facts()[1].KnowType), "DETECTION");
    EXPECT_EQ(Text(Facts()[2].KnowType), "ACTION");
}

TEST_F(FactsBase, TextsAreLimitedToTheirFields) {
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    dialog.Type(KNOW_NAME, std::string(80, 'n'));
    dialog.Type(KNOW_LOW, std::string(20, '1'));
    EXPECT_EQ(dialog.Text(KNOW_NAME), std::string(69, 'n'));
    EXPECT_EQ(dialog.Text(KNOW_LOW), std::string(14, '1'));
    dialog.Put(KNOW_DESCRIPTION, std::string(500, 'd'));
    Add(dialog, std::string(500, 'n'), "ACTION");
    EXPECT_EQ(Names(), (Texts{"a", std::string(69, 'n')}));
    EXPECT_EQ(Text(Facts()[1].Description), std::string(69, 'd'));
}

TEST_F(FactsBase, AddTypeRunsTheTypesWithoutAnOwner) {
    temp.Put("base.typ", std::string("OWN") + std::string(47, '\0'));
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    DialogSteps steps;
    steps.When("Knowledge Type", [&](const DialogHandle& types) {
        EXPECT_EQ(GetWindow(types.Window(), GW_OWNER), nullptr);
        EXPECT_TRUE(IsWindowEnabled(dialog.Window()));
        types.Put(KTYPE_NAME, "ADDED");
        types.Press(IDOK);
        types.Press(IDCANCEL);
    });
    dialog.Press(KNOW_ADD_TYPE);
    EXPECT_EQ(Text(KTypeFileName), temp.Path("base.typ"));
    EXPECT_EQ(dialog.Rows(KNOW_TYPES),
              (Texts{"DETECTION", "DIAGNOSTIC", "ACTION", "ADDED", "OWN"}));
}

TEST_F(FactsBase, TheCommandAsksForTheFile) {
    const std::string path = temp.Path("new.fac");
    {
        DialogSteps steps;
        steps.CancelFile("Save Facts Base As...");
        NewKnowledge(nullptr);
        EXPECT_EQ(Text(KnowFileName), temp.Path("base.fac"));
    }
    DialogSteps steps;
    steps.ChooseFile("Save Facts Base As...", path);
    steps.When("Facts Base", [](const DialogHandle& dialog) { dialog.Press(KNOW_CLOSE); });
    NewKnowledge(nullptr);
    EXPECT_EQ(Text(KnowFileName), path);
    EXPECT_EQ(KTyp, 0);
    EXPECT_TRUE(files::Exists(path.c_str()));
}

TEST_F(FactsBase, OfTenThousandFactsOpensAtOnce) {
    std::vector<Dat> facts;
    for (int i = 0; i < 10000; ++i)
        facts.push_back(Fact("fact number " + std::to_string(i), i));
    Open(facts);
    const auto start = std::chrono::steady_clock::now();
    ShownDialog dialog("Knowledge_Box", KnowledgeNew);
    UpdateWindow(dialog.Window());
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
    EXPECT_EQ(ListRows(dialog.Item(KNOW_FACTS)).Count(), 10000);
    EXPECT_EQ(dialog.Text(KNOW_IDENT), "10000");
}

} // namespace
