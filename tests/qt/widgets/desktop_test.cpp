// Message boxes, dialogs, the help and the end of the program, answered while they stand.
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTimer>
#include <array>
#include <filesystem>
#include <fstream>
#include <functional>
#include <utility>

#include "qt/widgets/shown_form.h"
#include "text/catalogue.h"

namespace zirvo::widgets {
namespace {

class Boxes : public ShownForm {
protected:
    /// Does something once a box stands, at the latest after a few seconds.
    template <class Box>
    void Meanwhile(std::function<void(Box&)> act) {
        auto* timer = new QTimer(&Window());
        QObject::connect(timer, &QTimer::timeout, timer, [this, timer, act] {
            auto* box = qobject_cast<Box*>(QApplication::activeModalWidget());
            if (box != nullptr && box->isVisible()) {
                timer->deleteLater();
                seen_ = true;
                act(*box);
            }
        });
        timer->start(5);
    }
    bool seen_ = false;
};

QStringList Words(const QMessageBox& box) {
    QStringList words;
    for (const QAbstractButton* button : box.buttons()) {
        words.append(button->text());
    }
    return words;
}

TEST_F(Boxes, HaveIconTitleAndTheWordsOfTheirLanguage) {
    Meanwhile<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "ZIRVO Ver2.3");
        EXPECT_EQ(box.text(), "<b>A & B</b>");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_EQ(Words(box).join(' '), QString::fromUtf8("はい いいえ"));
        EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(desktop_.Show({.Text = "<b>A & B</b>",
                             .Title = "ZIRVO Ver2.3",
                             .Picture = forms::Icon::Stop,
                             .Choice = forms::Buttons::YesNo,
                             .Words = forms::Language::Japanese}),
              forms::Answer::Yes);
    EXPECT_TRUE(seen_);
}

TEST_F(Boxes, ShowEveryMessageWhole) {
    for (const Int16 base : {JapaneseBase, EnglishBase}) {
        constexpr std::array<Int16, 18> shown{57, 58,  59,  60,  61,  62,  63,  64,  65,
                                              81, 123, 127, 128, 129, 170, 171, 172, 173};
        for (const Int16 k : shown) {
            Meanwhile<QMessageBox>([k](QMessageBox& box) {
                const auto* text = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
                ASSERT_NE(text, nullptr);
                if (text->wordWrap()) {
                    EXPECT_GE(text->height(), text->heightForWidth(text->width())) << k;
                } else {
                    EXPECT_GE(text->width(), text->sizeHint().width()) << k;
                }
                box.accept();
            });
            desktop_.Show({.Text = std::string(GetMessage(base, k)), .Title = "ZIRVO Ver2.3"});
            EXPECT_TRUE(std::exchange(seen_, false)) << k;
        }
    }
}

TEST_F(Boxes, WithoutATitleAreCalledZirvo) {
    Meanwhile<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "ZIRVO");
        EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
        EXPECT_EQ(Words(box).join(' '), "OK");
        box.reject();
    });
    EXPECT_EQ(desktop_.Show({.Text = "x"}), forms::Answer::Ok);
    EXPECT_TRUE(seen_);
}

TEST_F(Boxes, YesAndNoAreLeftNeitherByEscapeNorByTheFrame) {
    Meanwhile<QMessageBox>([](QMessageBox& box) {
        EXPECT_FALSE(box.windowFlags().testFlag(Qt::WindowCloseButtonHint));
        QTest::keyClick(&box, Qt::Key_Escape);
        EXPECT_TRUE(box.isVisible());
        box.close();
        EXPECT_TRUE(box.isVisible());
        box.buttons().at(1)->click();
    });
    EXPECT_EQ(desktop_.Show({.Text = "x", .Choice = forms::Buttons::YesNo}), forms::Answer::No);
    EXPECT_TRUE(seen_);
}

TEST_F(Boxes, YAndNAnswerAQuestionInBothLanguages) {
    for (const forms::Language words : {forms::Language::Japanese, forms::Language::English}) {
        const forms::Message question{.Text = "x", .Choice = forms::Buttons::YesNo, .Words = words};
        for (const auto& [key, answer] :
             {std::pair(Qt::Key_Y, forms::Answer::Yes), std::pair(Qt::Key_N, forms::Answer::No)}) {
            Meanwhile<QMessageBox>([pressed = key](QMessageBox& box) {
                QTest::keyClick(&box, pressed, Qt::ControlModifier);
                EXPECT_TRUE(box.isVisible());
                QKeyEvent held(QEvent::KeyPress, pressed, Qt::NoModifier, QString(), true);
                QCoreApplication::sendEvent(&box, &held);
                EXPECT_TRUE(box.isVisible()) << "a key that was held down before";
                QTest::keyClick(box.buttons().constFirst(), pressed);
                EXPECT_FALSE(box.isVisible());
            });
            EXPECT_EQ(desktop_.Show(question), answer);
            EXPECT_TRUE(std::exchange(seen_, false));
        }
    }
}

TEST_F(Boxes, YAndNMeanNothingWhereThereIsNoQuestion) {
    Meanwhile<QMessageBox>([](QMessageBox& box) {
        QTest::keyClick(&box, Qt::Key_Y);
        QTest::keyClick(&box, Qt::Key_N);
        EXPECT_TRUE(box.isVisible());
        box.accept();
    });
    desktop_.Show({.Text = "x"});
    EXPECT_TRUE(seen_);
}

TEST_F(Boxes, OkAndCancelIsCancelledByEscape) {
    Meanwhile<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(Words(box).join(' '), QString::fromUtf8("OK キャンセル"));
        EXPECT_EQ(box.icon(), QMessageBox::Information);
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(desktop_.Show({.Text = "x",
                             .Picture = forms::Icon::Information,
                             .Choice = forms::Buttons::OkCancel,
                             .Words = forms::Language::Japanese}),
              forms::Answer::Cancel);
    EXPECT_TRUE(seen_);
}

TEST_F(Boxes, WhileABoxStandsTheFormTakesNothing) {
    Form().Command1.Click = [this] {
        Form().Log.clear();
        desktop_.Show({.Text = "x"});
    };
    Meanwhile<QMessageBox>([this](QMessageBox& box) {
        Click("Command2");
        Click("Check1(0)");
        QTest::keyClick(&Find("Text1"), Qt::Key_5);
        box.accept();
    });
    Click("Command1");
    EXPECT_TRUE(seen_);
    EXPECT_EQ(Form().Log, Events{});
}

TEST_F(Boxes, ABoxChangesNoFocusOfTheForm) {
    Form().Text1.SetFocus();
    Form().Log.clear();
    Meanwhile<QMessageBox>([](QMessageBox& box) { box.accept(); });
    desktop_.Show({.Text = "x"});
    EXPECT_EQ(Window().focusWidget(), &Find("Text1"));
    EXPECT_TRUE(Form().Text1.HasFocus());
    EXPECT_EQ(Form().Log, Events{});
}

class Dialogs : public Boxes {
protected:
    Dialogs() {
        std::ofstream(Path("a.eva")) << "x";
        std::ofstream(Path("b.txt")) << "x";
        std::filesystem::create_directory(Path("inner"));
        earlier_ = std::filesystem::current_path();
    }
    std::string Path(const std::string& name) const {
        return folder_.filePath(QString::fromStdString(name)).toStdString();
    }
    forms::FileDialog Asking() {
        return {.Owner = &Form(),
                .Title = "Select Input File",
                .Folder = folder_.path().toStdString(),
                .Filter = "ZIRVO Files (*.eva)|*.eva",
                .FileMustExist = true,
                .PathMustExist = true};
    }
    static QLineEdit& Name(QFileDialog& dialog) { return *dialog.findChild<QLineEdit*>("fileNameEdit"); }

    QTemporaryDir folder_;
    std::filesystem::path earlier_;
};

TEST_F(Dialogs, OpenGivesTheWholePathAndLeavesTheCurrentFolderAlone) {
    Meanwhile<QFileDialog>([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Select Input File");
        EXPECT_EQ(dialog.nameFilters(), QStringList{"ZIRVO Files (*.eva)"});
        EXPECT_EQ(dialog.directory().absolutePath(), folder_.path());
        EXPECT_EQ(dialog.acceptMode(), QFileDialog::AcceptOpen);
        Name(dialog).setText("a.eva");
        QTest::keyClick(&Name(dialog), Qt::Key_Return);
    });
    EXPECT_EQ(desktop_.Open(Asking()), Path("a.eva"));
    EXPECT_TRUE(seen_);
    EXPECT_EQ(std::filesystem::current_path(), earlier_);
}

TEST_F(Dialogs, OpenTakesNoFileThatIsNotThere) {
    bool refused = false;
    Meanwhile<QFileDialog>([&](QFileDialog& dialog) {
        Name(dialog).setText("missing.eva");
        QTimer::singleShot(100, &dialog, [&] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                refused = true;
                box->accept();
            }
        });
        QTest::keyClick(&Name(dialog), Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    });
    EXPECT_EQ(desktop_.Open(Asking()), std::nullopt);
    EXPECT_TRUE(refused);
}

TEST_F(Dialogs, CancelGivesNothing) {
    Meanwhile<QFileDialog>([](QFileDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(desktop_.Open(Asking()), std::nullopt);
    EXPECT_TRUE(seen_);
}

TEST_F(Dialogs, SaveAsksNoQuestionAboutAnExistingFileAndAddsNoSuffix) {
    forms::FileDialog asking = Asking();
    asking.Filter = "BITMAP FILE(*.bmp)|*.bmp";
    asking.StartName = "*.bmp";
    Meanwhile<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.nameFilters(), QStringList{"BITMAP FILE(*.bmp)"});
        EXPECT_EQ(Name(dialog).text(), "*.bmp");
        QTest::keyClick(&Name(dialog), Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());  // a pattern is no name
        Name(dialog).setText("a.eva");
        QTest::keyClick(&Name(dialog), Qt::Key_Return);
    });
    EXPECT_EQ(desktop_.Save(asking), Path("a.eva"));
    Meanwhile<QFileDialog>([](QFileDialog& dialog) {
        Name(dialog).setText("picture");
        QTest::keyClick(&Name(dialog), Qt::Key_Return);
    });
    EXPECT_EQ(desktop_.Save(asking), Path("picture"));
}

TEST_F(Dialogs, SaveTakesNoFolderThatIsNotThere) {
    bool refused = false;
    Meanwhile<QFileDialog>([&](QFileDialog& dialog) {
        Name(dialog).setText(QString::fromStdString(Path("nowhere/x.bmp")));
        QTimer::singleShot(100, &dialog, [&] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                refused = true;
                box->accept();
            }
        });
        QTest::keyClick(&Name(dialog), Qt::Key_Return);
        EXPECT_TRUE(dialog.isVisible());
        dialog.reject();
    });
    EXPECT_EQ(desktop_.Save(Asking()), std::nullopt);
    EXPECT_TRUE(refused);
}

TEST_F(Dialogs, TheFolderDialogStartsWhereItIsToldAndGivesAFolder) {
    Meanwhile<QFileDialog>([this](QFileDialog& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "SELECT FOLDER");
        EXPECT_EQ(dialog.directory().absolutePath(), folder_.path());
        EXPECT_TRUE(dialog.testOption(QFileDialog::ShowDirsOnly));
        Name(dialog).setText("inner");
        QTest::keyClick(&Name(dialog), Qt::Key_Return);
    });
    EXPECT_EQ(desktop_.ChooseFolder(Form(), "SELECT FOLDER", folder_.path().toStdString(), forms::Language::English),
              Path("inner"));
    EXPECT_EQ(std::filesystem::current_path(), earlier_);
}

TEST_F(Dialogs, TheFolderDialogStartsAtHomeWhereThereIsNoSuchFolder) {
    Meanwhile<QFileDialog>([](QFileDialog& dialog) {
        EXPECT_EQ(dialog.directory().absolutePath(), QDir::homePath());
        dialog.reject();
    });
    EXPECT_EQ(desktop_.ChooseFolder(Form(), "SELECT FOLDER", Path("gone"), forms::Language::English), std::nullopt);
    EXPECT_TRUE(seen_);
}

TEST_F(Dialogs, SpeakJapaneseOnlyWhereItIsChosen) {
    const auto cancelWord = [](QFileDialog& dialog) {
        QStringList words;
        for (const auto* button : dialog.findChildren<QPushButton*>()) {
            words.append(button->text());
        }
        return words.join(' ');
    };
    Meanwhile<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_TRUE(cancelWord(dialog).contains(QString::fromUtf8("キャンセル"))) << cancelWord(dialog).toStdString();
        dialog.reject();
    });
    forms::FileDialog asking = Asking();
    asking.Words = forms::Language::Japanese;
    desktop_.Open(asking);
    Meanwhile<QFileDialog>([&](QFileDialog& dialog) {
        EXPECT_TRUE(cancelWord(dialog).contains("Cancel")) << cancelWord(dialog).toStdString();
        dialog.reject();
    });
    desktop_.Open(Asking());
}

TEST_F(Dialogs, HelpOpensBesideTheProgramWithoutHoldingItUp) {
    std::ofstream(Path("ZIRVO2.html"))
        << "<html><head><title>Manual</title></head><body><p>slip rate</p></body></html>";
    ASSERT_TRUE(desktop_.ShowHelp(Form(), Path("ZIRVO2.html")));
    QWidget* help = nullptr;
    for (QWidget* widget : QApplication::topLevelWidgets()) {
        help = widget->objectName() == "Help" ? widget : help;
    }
    ASSERT_NE(help, nullptr);
    EXPECT_TRUE(help->isVisible());
    EXPECT_FALSE(help->isModal());
    EXPECT_EQ(help->windowTitle(), "Manual");
    auto* page = help->findChild<QTextBrowser*>("HelpPage");
    EXPECT_EQ(page->toPlainText(), "slip rate");
    help->findChild<QLineEdit*>("HelpWords")->setText("rate");
    QTest::mouseClick(help->findChild<QPushButton*>("HelpFind"), Qt::LeftButton);
    EXPECT_EQ(page->textCursor().selectedText(), "rate");
    Click("Command1");
    EXPECT_EQ(std::count(Form().Log.begin(), Form().Log.end(), "Command1 Click"), 1);
}

TEST_F(Dialogs, HelpThatIsNotThereCannotBeShown) {
    EXPECT_FALSE(desktop_.ShowHelp(Form(), Path("ZIRVO1.html")));
    EXPECT_FALSE(desktop_.ShowHelp(Form(), Path("inner")));
}

TEST_F(Boxes, TheEndLeavesTheLoopAtOnceAndAsksNothingMore) {
    Form().Command1.Click = [this] {
        Form().App().End(3);
        EXPECT_EQ(desktop_.Show({.Text = "too late", .Choice = forms::Buttons::YesNo}), forms::Answer::Cancel);
    };
    QTimer::singleShot(0, &Window(), [this] { Click("Command1"); });
    EXPECT_EQ(desktop_.WaitForEnd(), 3);
    Form().Log.clear();
    Click("Command2");
    EXPECT_EQ(Form().Log, Events{});
}

TEST_F(Boxes, TheEndAlsoLeavesABoxThatStandsOpen) {
    QTimer::singleShot(0, &Window(), [this] {
        Meanwhile<QMessageBox>([this](QMessageBox&) { desktop_.EndProgram(1); });
        desktop_.Show({.Text = "x", .Choice = forms::Buttons::YesNo});
    });
    EXPECT_EQ(desktop_.WaitForEnd(), 1);
}

// The longest that a box of an error can say: a path of the system's greatest length, words without a blank, ten lines
// of a report, both languages.
TEST_F(Boxes, NothingOfAnErrorIsCutOffHoweverLongThePathAndTheReason) {
    const std::string name(255, 'n');
    const std::string kana = [] {
        std::string text;
        for (int i = 0; i < 85; ++i) {
            text += "道";
        }
        return text;
    }();
    for (const std::string& path :
         {std::string("/w/a.eva"), "/home/" + name, "/home/" + kana, "/" + name + "/" + name}) {
        for (const bool reason : {false, true}) {
            std::string lines;
            for (int i = 0; i < (reason ? 10 : 0); ++i) {
                lines += (i == 0 ? "" : "\n") + std::string(100, 'W') + "...";
            }
            const RuntimeFault caught(fault::InputPastEnd, {FaultMatter::Settings, path, lines});
            for (const std::optional<forms::Language> words : std::initializer_list<std::optional<forms::Language>>{
                     forms::Language::Japanese, forms::Language::English, std::nullopt}) {
                Meanwhile<QMessageBox>([&](QMessageBox& box) {
                    const auto* text = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
                    ASSERT_NE(text, nullptr);
                    if (text->wordWrap()) {
                        EXPECT_GE(text->height(), text->heightForWidth(text->width()));
                        const QRect needed = text->fontMetrics().boundingRect(QRect(0, 0, text->width(), 100000),
                                                                              Qt::TextWordWrap, text->text());
                        EXPECT_LE(needed.width(), text->width()) << path;
                    } else {
                        EXPECT_GE(text->width(), text->sizeHint().width());
                    }
                    EXPECT_LE(box.width(), 800) << "the smallest screen";
                    EXPECT_LE(box.height(), reason ? 10000 : 600);
                    box.accept();
                });
                desktop_.Show({.Text = forms::FaultBoxText({.Heading = "Run-time error '62':",
                                                            .Description = caught.what(),
                                                            .Caught = &caught,
                                                            .Words = words,
                                                            .Kept = true}),
                               .Title = "ZIRVO Ver2.3",
                               .Picture = forms::Icon::Stop});
                EXPECT_TRUE(std::exchange(seen_, false));
            }
        }
    }
}

TEST_F(Boxes, ACallComesInItsTimeAlsoWhileABoxStandsOpen) {
    std::vector<std::string> order;
    QTimer::singleShot(0, &Window(), [&] {
        desktop_.CallLater(20, [&] { order.emplace_back("late"); });
        desktop_.CallLater(0, [&] {
            order.emplace_back("early");
            desktop_.CallLater(30, [this] { desktop_.EndProgram(1); });
        });
        desktop_.Show({.Text = "x", .Choice = forms::Buttons::YesNo});
        order.emplace_back("box gone");
    });
    EXPECT_EQ(desktop_.WaitForEnd(), 1);
    EXPECT_EQ(order, (std::vector<std::string>{"early", "late", "box gone"}));
}

TEST_F(Boxes, NoCallComesBehindTheEnd) {
    bool called = false;
    QTimer::singleShot(0, &Window(), [&] {
        desktop_.CallLater(0, [&] { called = true; });
        desktop_.EndProgram(0);
    });
    EXPECT_EQ(desktop_.WaitForEnd(), 0);
    QCoreApplication::processEvents();
    EXPECT_FALSE(called);
}

TEST_F(Boxes, AFaultIsShownAndEndsWithStatusOne) {
    Form().Command1.Click = [this] { Form().MSFlexGrid1.SetTextMatrix(99, 1, "x"); };
    Meanwhile<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "ZIRVO Ver2.3");
        EXPECT_TRUE(box.text().startsWith("Run-time error '9':\n\nSubscript out of range\n\n"))
            << box.text().toStdString();
        box.accept();
    });
    QTimer::singleShot(0, &Window(), [this] { Click("Command1"); });
    EXPECT_EQ(desktop_.WaitForEnd(), 1);
    EXPECT_TRUE(seen_);
}

}  // namespace
}  // namespace zirvo::widgets
