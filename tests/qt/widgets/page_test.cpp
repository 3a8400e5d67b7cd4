// What the window of a form does with its pages and texts beside the form: looking for words, printing, sizes of texts.
#include <QDialog>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextBrowser>
#include <QTimer>
#include <array>

#include "qt/widgets/form_window.h"
#include "qt/widgets/print_page.h"
#include "qt/widgets/screen_fonts.h"
#include "qt/widgets/shown_form.h"
#include "qt/widgets/text_sizes.h"

namespace zirvo::widgets {
namespace {

/// Without the strokes of Shift and Ctrl themselves, which a keyboard sends before those of the letters and which every
/// control hears.
Events WithoutModifiers(Events log) {
    std::erase_if(
        log, [](const std::string& event) { return event.ends_with(" KeyDown 16") || event.ends_with(" KeyDown 17"); });
    return log;
}

class Pages : public ShownForm {
protected:
    Pages() { Form().Text9.Text = "   LAYER   X        Y\r\n  1    0.000    15.000\r\n  2    0.000    45.000"; }

    QDialog* FindDialog() const { return Window().findChild<QDialog*>("Find"); }
    QPlainTextEdit& Page() { return Find<QPlainTextEdit>("Text9"); }
    /// Opens the window, types words and presses Enter.
    void LookFor(const char* words) {
        Strike(Qt::Key_F, Qt::ControlModifier);
        ASSERT_NE(FindDialog(), nullptr);
        auto* line = FindDialog()->findChild<QLineEdit*>("FindWords");
        line->clear();
        QTest::keyClicks(line, words);
        QTest::keyClick(line, Qt::Key_Return);
    }
    QString Told() const { return FindDialog()->findChild<QLabel*>("FindTold")->text(); }
};

TEST_F(Pages, WordsAreFoundOneAfterTheOtherAndFromTheTopAgain) {
    LookFor("0.000");
    EXPECT_EQ(Page().textCursor().selectedText(), "0.000");
    const int first = Page().textCursor().position();
    QTest::keyClick(FindDialog()->findChild<QLineEdit*>("FindWords"), Qt::Key_Return);
    const int second = Page().textCursor().position();
    EXPECT_GT(second, first);
    QTest::mouseClick(FindDialog()->findChild<QPushButton*>("FindNext"), Qt::LeftButton);
    EXPECT_EQ(Page().textCursor().position(), first);
    EXPECT_EQ(Told(), "");
}

TEST_F(Pages, WordsThatAreNowhereAreToldInTheLanguageOfTheScreen) {
    for (const auto& [language, told] :
         {std::pair(forms::Language::English, "Not found"), std::pair(forms::Language::Japanese, "見つかりません")}) {
        delete FindDialog();
        Form().ViewLanguage = language;
        LookFor("99.000");
        EXPECT_EQ(Told(), QString::fromUtf8(told));
        EXPECT_FALSE(Page().textCursor().hasSelection());
        QTest::keyClicks(FindDialog()->findChild<QLineEdit*>("FindWords"), "1");
        EXPECT_EQ(Told(), "") << "it belongs to the words that were looked for";
    }
}

TEST_F(Pages, LookingForWordsIsNoneOfTheFormsBusiness) {
    Form().Command1.SetFocus();
    Settle();
    Form().Log.clear();
    LookFor("LAYER");
    QTest::keyClick(FindDialog(), Qt::Key_Escape);
    EXPECT_FALSE(FindDialog()->isVisible());
    EXPECT_EQ(WithoutModifiers(Form().Log), Events{});
    EXPECT_TRUE(Form().Command1.HasFocus());
    EXPECT_EQ(Page().toPlainText().size(), QString(Form().Text9.Text.Get().c_str()).remove('\r').size());
}

TEST_F(Pages, WithoutAPageTheStrokesAreTheFormsAsTheyWere) {
    Form().Text9.Visible = false;
    Form().Command1.SetFocus();
    Settle();
    Form().Log.clear();
    Strike(Qt::Key_F, Qt::ControlModifier);
    Strike(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(FindDialog(), nullptr);
    EXPECT_EQ(WithoutModifiers(Form().Log),
              (Events{"Command1 KeyDown 70", "Command1 KeyPress 6", "Command1 KeyDown 80", "Command1 KeyPress 16"}));
}

class Printing : public Pages {
protected:
    Printing() {
        desktop_.SetPrinterChoice([this](QPrinter& printer, QWidget& /*owner*/, forms::Language words) {
            ++asked_;
            language_ = words;
            name_ = printer.docName();
            orientation_ = printer.pageLayout().orientation();
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(file_);
            return goOn_;
        });
    }
    QString Pdf() const { return folder_.filePath("page.pdf"); }
    /// What the box of a failure says, closed at once; "" where none comes up.
    template <class Act>
    QString Failure(Act act) {
        QString words;
        QTimer closing;
        QObject::connect(&closing, &QTimer::timeout, [&words] {
            if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
                words = box->text();
                box->accept();
            }
        });
        closing.start(10);
        act();
        return words;
    }
    /// "/Type /Page" of each page, and the one "/Type /Pages" around them.
    qsizetype PagesPrinted() const {
        QFile file(Pdf());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QByteArray bytes = file.readAll();
        EXPECT_TRUE(bytes.startsWith("%PDF-"));
        return bytes.count("/Type /Page\n") + bytes.count("/Type /Page/");
    }

    QTemporaryDir folder_;
    QString file_ = Pdf();
    int asked_ = 0;
    bool goOn_ = true;
    forms::Language language_ = forms::Language::English;
    QString name_;  ///< of which the dialog makes that of a file: what stands before the last full stop, and ".pdf"
    QPageLayout::Orientation orientation_ = QPageLayout::Portrait;
};

TEST_F(Printing, ControlPPrintsThePage) {
    Form().ViewLanguage = forms::Language::Japanese;
    Strike(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(asked_, 1);
    EXPECT_EQ(language_, forms::Language::Japanese);
    EXPECT_EQ(orientation_, QPageLayout::Portrait);
    EXPECT_EQ(PagesPrinted(), 1);
}

TEST_F(Printing, ACopyIsNamedAsItsPageOrElseAsTheWindow) {
    Form().PageName = "road.v2.bre";
    Strike(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(name_, "road.v2.bre.pdf");
    Form().PageName = "";
    Strike(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(name_, Window().windowTitle() + ".pdf");
}

TEST_F(Printing, LongAndWideReportsLieOnManyPages) {
    const std::string line(220, '8');
    std::string report;
    for (int i = 0; i < 400; ++i) {
        report += line + "\r\n";
    }
    Form().Text9.Text = report;
    Strike(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(orientation_, QPageLayout::Landscape);
    EXPECT_GE(PagesPrinted(), 4);
    EXPECT_LE(PagesPrinted(), 12);
}

TEST_F(Printing, ACancelPrintsNothing) {
    goOn_ = false;
    Strike(Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(asked_, 1);
    EXPECT_FALSE(QFile::exists(Pdf()));
}

TEST_F(Printing, ACopyThatCannotBeWrittenIsTold) {
    const auto print = [this] { Strike(Qt::Key_P, Qt::ControlModifier); };
    EXPECT_EQ(Failure(print), "");
    for (const char* file : {"/nowhere/page.pdf", "/dev/full"}) {  // no such folder, no room
        file_ = file;
        EXPECT_EQ(Failure(print), QString("This cannot be printed.\n\n") + file);
    }
    Form().ViewLanguage = forms::Language::Japanese;
    EXPECT_EQ(Failure(print), QString::fromUtf8("印刷できません。\n\n/dev/full"));
}

// A folder may have the name of the file: what lies in it must not go.
TEST_F(Printing, AFolderInThePlaceOfTheFileIsToldAndLeft) {
    ASSERT_TRUE(QDir(folder_.path()).mkpath("page.pdf/inside"));
    EXPECT_EQ(Failure([this] { Strike(Qt::Key_P, Qt::ControlModifier); }),
              QString("This cannot be printed.\n\n") + QDir::toNativeSeparators(Pdf()));
    EXPECT_EQ(asked_, 1);
    EXPECT_EQ(QDir(folder_.path()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
              QStringList("page.pdf"));
    EXPECT_TRUE(QFileInfo(Pdf() + "/inside").isDir());
}

class Manual : public Printing {
protected:
    QWidget& Help() {
        QFile page(folder_.filePath("ZIRVO1.html"));
        EXPECT_TRUE(page.open(QIODevice::WriteOnly));
        page.write("<html><head><title>Manual</title></head><body><p>slip rate</p></body></html>");
        page.close();
        EXPECT_TRUE(desktop_.ShowHelp(Form(), page.fileName().toStdString()));
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (widget->objectName() == "Help") {
                return *widget;
            }
        }
        throw std::runtime_error("no help");
    }
};

TEST_F(Manual, ControlFLeadsToTheWordsAndWhatIsNowhereIsTold) {
    QWidget& help = Help();
    auto& page = *help.findChild<QTextBrowser*>("HelpPage");
    auto& words = *help.findChild<QLineEdit*>("HelpWords");
    const auto& told = *help.findChild<QLabel*>("HelpTold");
    page.setFocus();
    QTest::keyClick(&page, Qt::Key_F, Qt::ControlModifier);
    EXPECT_EQ(help.focusWidget(), &words);
    QTest::keyClicks(&words, "modulus");
    QTest::keyClick(&words, Qt::Key_Return);
    EXPECT_EQ(told.text(), QString::fromUtf8("見つかりません"));
    QTest::keyClick(&words, Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(&words, "slip");
    EXPECT_EQ(told.text(), "");
    QTest::keyClick(&words, Qt::Key_Return);
    EXPECT_EQ(page.textCursor().selectedText(), "slip");
}

TEST_F(Manual, ControlPPrintsIt) {
    QTest::keyClick(Help().findChild<QTextBrowser*>("HelpPage"), Qt::Key_P, Qt::ControlModifier);
    EXPECT_EQ(asked_, 1);
    EXPECT_EQ(name_, "Manual.pdf");
    EXPECT_EQ(language_, forms::Language::Japanese);
    EXPECT_EQ(PagesPrinted(), 1);
}

TEST_F(Manual, ACopyThatCannotBeWrittenIsTold) {
    auto* page = Help().findChild<QTextBrowser*>("HelpPage");
    const auto print = [page] { QTest::keyClick(page, Qt::Key_P, Qt::ControlModifier); };
    EXPECT_EQ(Failure(print), "");
    for (const char* file : {"/nowhere/manual.pdf", "/dev/full"}) {
        file_ = file;
        EXPECT_EQ(Failure(print), QString::fromUtf8("印刷できません。\n\n") + file);
    }
}

class SizesOfTexts : public ShownForm {
protected:
    ~SizesOfTexts() override { QFile::remove(TextSizes::SettingsFile()); }
    int Letters() { return Find("Text9").font().pixelSize(); }
};

TEST_F(SizesOfTexts, FollowControlWithPlusMinusAndNought) {
    Form().Command1.SetFocus();
    Settle();
    Form().Log.clear();
    ASSERT_EQ(Letters(), 12);
    Strike(Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(Letters(), 13) << "110 %";
    Strike(Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_EQ(Letters(), 15) << "125 %";
    Strike(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(Letters(), 13);
    Strike(Qt::Key_0, Qt::ControlModifier);
    EXPECT_EQ(Letters(), 12);
    EXPECT_EQ(WithoutModifiers(Form().Log), Events{}) << "the form hears nothing of it";
}

TEST_F(SizesOfTexts, RowsAndColumnsOfATableGrowWithThem) {
    forms::MSFlexGrid& grid = Form().MSFlexGrid1;
    const double high = grid.RowHeight;
    const double wide = grid.ColWidth(1);
    const float measured = Form().TextWidth("LAYER 1");
    for (int i = 0; i < 4; ++i) {
        Strike(Qt::Key_Plus, Qt::ControlModifier);
    }
    EXPECT_DOUBLE_EQ(grid.RowHeight, 1.75 * high);
    EXPECT_DOUBLE_EQ(grid.ColWidth(1), 1.75 * wide);
    EXPECT_FLOAT_EQ(Form().TextWidth("LAYER 1"), 1.75F * measured);
    EXPECT_EQ(Find("MSFlexGrid1").font().pixelSize(), 21);
    Strike(Qt::Key_0, Qt::ControlModifier);
    EXPECT_DOUBLE_EQ(grid.RowHeight, high);
    EXPECT_NEAR(grid.ColWidth(1), wide, 1e-9);
}

TEST_F(SizesOfTexts, AreRememberedInTheUsersSettings) {
    Strike(Qt::Key_Plus, Qt::ControlModifier);
    Strike(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(TextSizes().Scale(), 1.25);
    QtDesktop next;
    EXPECT_FLOAT_EQ(next.TextWidth({}, "J"), 1.25F * TextWidthTwips({}, "J"));
}

TEST_F(SizesOfTexts, StopAtTheLargestAndAtTheSmallest) {
    TextSizes sizes{QString()};
    for (int i = 0; i < 20; ++i) {
        sizes.Take(TextStep::Larger);
    }
    EXPECT_EQ(sizes.Scale(), 3);
    EXPECT_FALSE(sizes.Take(TextStep::Larger));
    for (int i = 0; i < 20; ++i) {
        sizes.Take(TextStep::Smaller);
    }
    EXPECT_EQ(sizes.Scale(), 0.8);
    EXPECT_FALSE(sizes.Take(TextStep::Smaller));
    EXPECT_TRUE(sizes.Take(TextStep::AsTold));
    EXPECT_EQ(sizes.Scale(), 1);
}

TEST_F(SizesOfTexts, AreAsToldWhereTheSettingsHoldNoSize) {
    const QTemporaryDir folder;
    const QString file = folder.filePath("screens.ini");
    for (const char* bytes : {"", "[General]\nTextPercent=large\n", "\x01\x02\x03", "[General]\nOther=2\n"}) {
        QFile out(file);
        ASSERT_TRUE(out.open(QIODevice::WriteOnly));
        out.write(bytes);
        out.close();
        EXPECT_EQ(TextSizes(file).Scale(), 1) << bytes;
    }
    QFile out(file);
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write("[General]\nTextPercent=100000\n");
    out.close();
    EXPECT_EQ(TextSizes(file).Scale(), 3);
}

}  // namespace
}  // namespace zirvo::widgets
