// Tests of the application: forms by name, the outermost handler, the fault box, the end.
#include "forms/application.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "base/fault_of.h"
#include "forms/plain_form.h"
#include "forms/shared_log.h"

namespace zirvo::forms {
namespace {

[[noreturn]] void Overflow() {
    throw RuntimeFault(fault::Overflow);
}

struct OneButtonForm : PlainForm {
    using PlainForm::PlainForm;
    CommandButton Command1{*this, "Command1"};
    TextBox Text1{*this, "Text1"};
    Label Label1{*this, "Label1"};
};

/// Logs its life in a log that outlives it.
struct LoggedForm : PlainForm {
    LoggedForm(forms::Application& application, Log& log, std::function<void(LoggedForm&)> load)
        : PlainForm(application), log_(log), load_(std::move(load)) {
        log_.Note("made");
    }
    ~LoggedForm() override { log_.Note("destroyed"); }
    void Form_Load() override {
        log_.Note("load");
        if (load_) {
            load_(*this);
        }
    }
    void Form_QueryUnload(bool& cancel, UnloadMode mode) override {
        log_.Note(mode == UnloadMode::Code ? "query code" : "query menu");
        PlainForm::Form_QueryUnload(cancel, mode);
    }
    void Form_Unload() override { log_.Note("unload"); }

    Log& log_;
    std::function<void(LoggedForm&)> load_;
    CommandButton Command1{*this, "Command1"};
};

struct Forms : testing::Test {
    Log log;
    ScriptedDesktop desktop;
    Application app{desktop};
    std::function<void(LoggedForm&)> load;

    void SetUp() override {
        app.Register("Plain", [this](Application& a) { return std::make_unique<LoggedForm>(a, log, load); });
    }
    LoggedForm& Form1() { return dynamic_cast<LoggedForm&>(app.Get<PlainForm>()); }
};

using Dispatch = Forms;

TEST_F(Dispatch, AFaultEndsTheProgramWithItsBoxAndStatus1) {
    app.Dispatch(Overflow);
    ASSERT_EQ(desktop.Boxes.size(), 1U);
    EXPECT_EQ(desktop.BoxHeads(), Lines{"Run-time error '6':\n\nOverflow"});
    EXPECT_EQ(desktop.Boxes[0].Title, "ZIRVO Ver2.3");
    EXPECT_EQ(desktop.Boxes[0].Picture, Icon::Stop);
    EXPECT_EQ(desktop.Boxes[0].Choice, Buttons::Ok);
    EXPECT_EQ(desktop.EndStatus, 1);
    EXPECT_TRUE(app.HasEnded());
}

TEST_F(Dispatch, AFaultWithWordsOfItsOwnShowsThem) {
    app.Dispatch([] { throw RuntimeFault(20001, "User selected cancel."); });
    EXPECT_EQ(desktop.BoxHeads(), Lines{"Run-time error '20001':\n\nUser selected cancel."});
}

TEST_F(Dispatch, AMistakeOfOurOwnIsShownTooAndDoesNotReachTheToolkit) {
    app.Dispatch([] { throw std::length_error("too long"); });
    EXPECT_EQ(desktop.BoxHeads(), Lines{"Internal error:\n\ntoo long"});
    EXPECT_EQ(desktop.EndStatus, 1);
}

TEST_F(Dispatch, AnInnerOneLetsTheFaultTravelToTheTrapAroundIt) {
    bool trapped = false;
    app.Dispatch([&] {
        try {
            app.Dispatch(Overflow);
        } catch (const RuntimeFault& fault) {
            trapped = fault.Number() == fault::Overflow;
        }
    });
    EXPECT_TRUE(trapped);
    EXPECT_TRUE(desktop.Boxes.empty());
    EXPECT_FALSE(app.HasEnded());
}

TEST_F(Dispatch, AnEventOfTheProgramsOwnWriteLetsTheFaultTravelToTheTrapAroundIt) {
    app.Register("Buttons", [](Application& a) { return std::make_unique<OneButtonForm>(a, "Buttons"); });
    auto& form = dynamic_cast<OneButtonForm&>(app.Load("Buttons"));
    form.Label1.Change = Overflow;
    form.Command1.Click = Overflow;
    int trapped = 0;
    app.Dispatch([&] {
        for (const auto& act : {std::function<void()>([&] { form.Label1.Caption = "1"; }),
                                std::function<void()>([&] { form.Command1.Press(); })}) {
            try {
                act();
            } catch (const RuntimeFault&) {
                ++trapped;
            }
        }
    });
    EXPECT_EQ(trapped, 2);
    EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(Dispatch, TellsThatAHandlerRuns) {
    EXPECT_FALSE(app.InHandler());
    app.Dispatch([&] {
        EXPECT_TRUE(app.InHandler());
        app.Dispatch([&] { EXPECT_TRUE(app.InHandler()); });
        EXPECT_TRUE(app.InHandler());
    });
    EXPECT_FALSE(app.InHandler());
}

TEST_F(Dispatch, WhileTheFaultBoxStandsAHandlerRuns) {
    bool inHandler = false;
    desktop.OnBox = [&](const Message&) { inHandler = app.InHandler(); };
    app.Dispatch(Overflow);
    EXPECT_TRUE(inHandler);
}

TEST_F(Dispatch, NothingRunsOnceTheProgramHasEnded) {
    app.Register("Buttons", [](Application& a) { return std::make_unique<OneButtonForm>(a, "Buttons"); });
    app.Show("Buttons");
    auto& form = dynamic_cast<OneButtonForm&>(app.Load("Buttons"));
    form.NoteFocus(form.Text1);
    form.Command1.Click = [&] {
        form.Text1.SetFocus();  // its GotFocus waits, and is dropped
        app.End();
    };
    form.Command1.UserClick();
    EXPECT_EQ(desktop.EndStatus, 0);
    bool ran = false;
    app.Dispatch([&] { ran = true; });
    EXPECT_FALSE(ran);
    Type(form, "5");
    EXPECT_EQ(form.Events, Lines{});
    EXPECT_TRUE(form.Text1.Text == "");
}

TEST_F(Dispatch, TheProgramEndsOnce) {
    app.Dispatch([&] {
        app.End();
        app.End(3);
        Overflow();  // behind the end: no box any more
    });
    EXPECT_EQ(desktop.Log, Lines{"end 0"});
    EXPECT_TRUE(desktop.Boxes.empty());
}

TEST_F(Dispatch, AFaultInAnEventThatWaitedIsCaughtToo) {
    app.Register("Buttons", [](Application& a) { return std::make_unique<OneButtonForm>(a, "Buttons"); });
    app.Show("Buttons");
    auto& form = dynamic_cast<OneButtonForm&>(app.Load("Buttons"));
    form.Text1.GotFocus = Overflow;
    app.Dispatch([&] { form.Text1.SetFocus(); });
    EXPECT_EQ(desktop.BoxHeads(), Lines{"Run-time error '6':\n\nOverflow"});
}

using Load = Forms;

TEST_F(Load, AFormThatNobodyRegisteredIsFault5) {
    EXPECT_EQ(FaultOf([&] { app.Load("Form9"); }), fault::InvalidCall);
}

TEST_F(Load, LoadsOnceAndGivesTheSameFormFromThenOn) {
    EXPECT_EQ(app.Find("Plain"), nullptr);
    PlainForm& form = app.Get<PlainForm>();
    EXPECT_EQ(&app.Get<PlainForm>(), &form);
    EXPECT_EQ(app.Find("Plain"), &form);
    EXPECT_TRUE(form.IsLoaded());
    EXPECT_FALSE(form.IsVisible());
    EXPECT_EQ(log.Lines, (Lines{"made", "load"}));
    EXPECT_TRUE(desktop.Log.empty());
}

TEST_F(Load, ShowLoadsAndShows) {
    app.Show("Plain");
    app.Show("Plain");
    EXPECT_EQ(log.Lines, (Lines{"made", "load"}));
    EXPECT_EQ(desktop.Log, (Lines{"show Plain", "show Plain"}));
    EXPECT_TRUE(Form1().IsVisible());
}

TEST_F(Load, AFormThatShowsItselfInItsOwnLoadIsNotLoadedAgain) {
    load = [&](LoggedForm& form) {
        form.Show();
        EXPECT_EQ(&app.Get<PlainForm>(), &form);
        app.Show("Plain");
    };
    app.Show("Plain");
    EXPECT_EQ(log.Lines, (Lines{"made", "load"}));
    EXPECT_TRUE(Form1().IsVisible());
}

TEST_F(Load, AFormWhoseLoadFailsIsNotThere) {
    load = [](LoggedForm& form) {
        form.Show();
        Overflow();
    };
    EXPECT_EQ(FaultOf([&] { app.Load("Plain"); }), fault::Overflow);
    EXPECT_EQ(app.Find("Plain"), nullptr);
    app.Dispatch([] {});
    EXPECT_EQ(log.Lines, (Lines{"made", "load", "destroyed"}));
    EXPECT_EQ(desktop.Log, (Lines{"show Plain", "hide Plain", "gone Plain"}));
}

using Unload = Forms;

TEST_F(Unload, AFormThatUnloadsItselfLivesOnUntilTheOutermostHandlerHasEnded) {
    app.Show("Plain");
    LoggedForm& form = Form1();
    form.Command1.Click = [&form, this] {
        form.Unload();
        EXPECT_EQ(app.Find("Plain"), nullptr);
        EXPECT_FALSE(form.IsVisible());
        EXPECT_TRUE(form.IsGone());
        EXPECT_EQ(log.Lines.back(), "unload");  // and not destroyed
        form.Caption = "still there";
        EXPECT_FALSE(form.Command1.IsUsable());
        form.Command1.Press();  // would unload for ever
        form.Show();            // a form that is gone does not come back
    };
    form.Command1.UserClick();
    EXPECT_EQ(log.Lines, (Lines{"made", "load", "query code", "unload", "destroyed"}));
    EXPECT_EQ(desktop.Log, (Lines{"show Plain", "hide Plain", "gone Plain"}));
}

TEST_F(Unload, AFormMayUnloadItselfInAKeyOrInAFocusEventAndAsksOnce) {
    app.Show("Plain");
    LoggedForm& form = Form1();
    form.Command1.KeyDown = [&form](int&) {
        form.Unload();
        form.Unload();
    };
    form.Command1.KeyPress = [](int&) { FAIL() << "a stroke goes on in a form that is gone"; };
    Type(form, "x");
    EXPECT_EQ(log.Lines, (Lines{"made", "load", "query code", "unload", "destroyed"}));

    load = [](LoggedForm& again) { again.Command1.GotFocus = [&again] { again.Unload(); }; };
    app.Show("Plain");
    EXPECT_EQ(app.Find("Plain"), nullptr);
    EXPECT_EQ(log.Lines.back(), "destroyed");
}

TEST_F(Unload, FocusEventsThatWaitForAFormThatIsGoneAreDropped) {
    app.Show("Plain");
    LoggedForm& form = Form1();
    TextBox& box = form.Controls.Add("box", nullptr);
    box.Visible = true;
    box.GotFocus = [this] { log.Note("got box"); };
    form.Command1.LostFocus = [this] { log.Note("lost Command1"); };
    app.Dispatch([&] {
        box.SetFocus();
        form.Unload();
    });
    EXPECT_EQ(log.Lines, (Lines{"made", "load", "query code", "unload", "destroyed"}));
}

TEST_F(Unload, TheNextLoadMakesAnotherForm) {
    app.Show("Plain");
    app.Dispatch([&] {
        PlainForm& old = Form1();
        old.Caption = "old";
        old.Unload();
        EXPECT_NE(&app.Get<PlainForm>(), &old);
        EXPECT_TRUE(app.Get<PlainForm>().Caption == "");
    });
    EXPECT_EQ(log.Lines, (Lines{"made", "load", "query code", "unload", "made", "load", "destroyed"}));
}

TEST_F(Unload, TheFrameCannotCloseAForm) {
    app.Show("Plain");
    Form1().UserClose();
    EXPECT_EQ(log.Lines.back(), "query menu");
    EXPECT_TRUE(Form1().IsVisible());
    Form1().HasCloseEntry = false;
    log.Lines.clear();
    Form1().UserClose();
    EXPECT_EQ(log.Lines, Lines{});  // without a close entry nobody is even asked
}

TEST_F(Unload, AFormThatAllowsItIsClosedByTheFrame) {
    struct Closable : PlainForm {
        using PlainForm::PlainForm;
        void Form_QueryUnload(bool& cancel, UnloadMode /*mode*/) override { cancel = false; }
    };
    app.Register("Closable", [](Application& a) { return std::make_unique<Closable>(a, "Closable"); });
    app.Show("Closable");
    app.Find("Closable")->UserClose();
    EXPECT_EQ(app.Find("Closable"), nullptr);
    EXPECT_EQ(desktop.Log, (Lines{"show Closable", "hide Closable", "gone Closable"}));
}

TEST_F(Unload, TheApplicationTakesItsFormsWithIt) {
    Log life;
    ScriptedDesktop world;
    {
        Application other(world);
        other.Register("Plain", [&](Application& a) { return std::make_unique<LoggedForm>(a, life, nullptr); });
        other.Show("Plain");
    }
    EXPECT_EQ(life.Lines, (Lines{"made", "load", "destroyed"}));  // no unloading, no question
    EXPECT_EQ(world.Log, (Lines{"show Plain", "gone Plain"}));
}

}  // namespace
}  // namespace zirvo::forms
