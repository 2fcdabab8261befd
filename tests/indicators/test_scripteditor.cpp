// The script editor (colouring, line numbers, find, saving, the run and debug commands) and
// the indicator list's commands that make, edit and delete script files.

#include "data/home.h"
#include "indicators/script/newindicator.h"
#include "indicators/ui/indicatorfactorywidget.h"
#include "indicators/ui/scripteditor.h"
#include "indicators/ui/scripthighlighter.h"
#include "indicators/ui/scripttextedit.h"
#include "support/messagebox.h"
#include "support/testsettings.h"

#include <QAction>
#include <QCheckBox>
#include <QDir>
#include <QInputDialog>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTextBlock>
#include <QtTest>

#include <algorithm>
#include <cmath>
#include <functional>

using namespace OrdaneView;

namespace {

using Kind = ScriptHighlighter::Kind;

void write(const QString &path, const QByteArray &text)
{
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write(text) == text.size());
}

QByteArray read(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QString script(const QString &name)
{
    return QDir(OrdaneData::Home::userIndicatorsPath()).filePath(name);
}

// Hands the next modal dialog of type T to `answer` once it is up.
template <typename T> void answerNext(const std::function<void(T *)> &answer)
{
    QTimer::singleShot(0, [=] {
        if (auto *dialog = qobject_cast<T *>(QApplication::activeModalWidget()))
            answer(dialog);
        else
            answerNext<T>(answer);
    });
}

// Answers the next name prompt with `name`, recording "title|label|suggestion".
void typeName(const QString &name, QString *seen = nullptr)
{
    answerNext<QInputDialog>([=](QInputDialog *dialog) {
        if (seen)
            *seen = QStringLiteral("%1|%2|%3")
                        .arg(dialog->windowTitle(), dialog->labelText(), dialog->textValue());
        dialog->setTextValue(name);
        dialog->accept();
    });
}

// Replaces the text the way typing does, leaving the document modified.
void retype(ScriptEditor *editor, const QString &text)
{
    QTextCursor cursor(editor->textEdit()->document());
    cursor.select(QTextCursor::Document);
    cursor.insertText(text);
}

// The highlighter's kind of the character at (line, column); -1 when plain.
int kindAt(const ScriptEditor &editor, int line, int column)
{
    const QTextBlock block = editor.textEdit()->document()->findBlockByNumber(line);
    for (const QTextLayout::FormatRange &range : block.layout()->formats()) {
        if (column < range.start || column >= range.start + range.length)
            continue;
        for (int kind = 0; kind < ScriptHighlighter::KindCount; ++kind)
            if (range.format == editor.highlighter()->format(Kind(kind)))
                return kind;
        return -2;
    }
    return -1;
}

// The contrast ratio of two colours, 1 to 21, from their relative luminance in sRGB.
double contrast(const QColor &a, const QColor &b)
{
    const auto luminance = [](const QColor &c) {
        const auto linear = [](double v) {
            return v <= 0.03928 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * linear(c.redF()) + 0.7152 * linear(c.greenF()) + 0.0722 * linear(c.blueF());
    };
    const double la = luminance(a), lb = luminance(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}

} // namespace

class TestScriptEditor : public QObject
{
    Q_OBJECT

    QTemporaryDir mHome;

private slots:
    void initTestCase() { QVERIFY(TestSupport::useTestHome(mHome.path())); }

    void highlighting_data()
    {
        QTest::addColumn<int>("line");
        QTest::addColumn<int>("column");
        QTest::addColumn<int>("kind");
        QTest::newRow("keyword") << 0 << 0 << int(Kind::Keyword);
        QTest::newRow("exponent") << 0 << 12 << int(Kind::Number);
        QTest::newRow("line comment") << 0 << 17 << int(Kind::Comment);
        QTest::newRow("escaped quote") << 1 << 16 << int(Kind::String);
        QTest::newRow("// in string") << 1 << 20 << int(Kind::Interface);
        QTest::newRow("comment goes on") << 3 << 5 << int(Kind::Comment);
        QTest::newRow("after comment") << 3 << 20 << int(Kind::Keyword);
        QTest::newRow("own name") << 3 << 26 << -1;
        QTest::newRow("operation") << 3 << 35 << int(Kind::Interface);
        QTest::newRow("single quotes") << 3 << 48 << int(Kind::String);
        QTest::newRow("keyword prefix") << 4 << 0 << -1;
        QTest::newRow("hex") << 4 << 13 << int(Kind::Number);
    }

    void highlighting()
    {
        QFETCH(int, line);
        QFETCH(int, column);
        QFETCH(int, kind);
        ScriptEditor editor;
        editor.textEdit()->setPlainText(
            QStringLiteral("var n = 3.5e2; // count\n"
                           "s = \"http://x\\\" y\"; Shared.close(0);\n"
                           "/* first\n"
                           "   still comment */ with (Trend) { createBuffer('a'); }\n"
                           "typeofx = 0x1F;\n"));
        // The kinds' formats differ, or a later kind's rows would read as an earlier one.
        QCOMPARE(kindAt(editor, line, column), kind);
    }

    // The colours follow the background the editor is painted on, whether a style sheet or
    // the palette sets it, and not the application palette.
    void coloursReadOnTheEditorsBackground_data()
    {
        QTest::addColumn<QString>("sheet");
        QTest::addColumn<QColor>("base"); // set through the palette when valid
        QTest::newRow("dark-style-sheet")
            << QStringLiteral("QPlainTextEdit { background-color: #0e151e; }") << QColor();
        QTest::newRow("light-style-sheet")
            << QStringLiteral("QPlainTextEdit { background-color: #ffffff; }") << QColor();
        QTest::newRow("dark-palette") << QString() << QColor(Qt::black);
    }

    void coloursReadOnTheEditorsBackground()
    {
        QFETCH(QString, sheet);
        QFETCH(QColor, base);
        ScriptEditor editor;
        editor.setStyleSheet(sheet);
        if (base.isValid()) {
            QPalette palette = editor.textEdit()->palette();
            palette.setColor(QPalette::Base, base);
            editor.textEdit()->setPalette(palette);
        }
        editor.textEdit()->setPlainText(QStringLiteral("var x = 1; // note"));
        editor.show();
        QVERIFY(QTest::qWaitForWindowExposed(&editor));
        const QColor background = editor.textEdit()->palette().color(QPalette::Base);
        if (base.isValid())
            QCOMPARE(background, base);
        for (int kind = 0; kind < ScriptHighlighter::KindCount; ++kind) {
            const QColor text = editor.highlighter()->format(Kind(kind)).foreground().color();
            QVERIFY2(contrast(text, background) >= 4.5,
                     qPrintable(text.name() + QLatin1String(" on ") + background.name()));
        }
        QCOMPARE(kindAt(editor, 0, 0), int(Kind::Keyword)); // coloured again, not left stale
    }

    void gutterGrowsWithDigits()
    {
        ScriptEditor editor;
        ScriptTextEdit *edit = editor.textEdit();
        edit->setPlainText(QString(98, QLatin1Char('\n'))); // 99 lines
        editor.show();
        const int narrow = edit->gutterWidth();
        edit->appendPlainText(QString());
        QVERIFY(edit->gutterWidth() > narrow);
        // The gutter is as wide as it needs to be and the text starts right of it.
        QCOMPARE(edit->gutter()->width(), edit->gutterWidth());
        QCOMPARE(edit->viewport()->geometry().left(), edit->gutter()->geometry().right() + 1);
    }

    void findWrapsAndReportsMisses()
    {
        ScriptEditor editor;
        editor.textEdit()->setPlainText(QStringLiteral("alpha beta Alpha\nbeta"));
        auto *text = editor.findChild<QLineEdit *>(QStringLiteral("scriptFindText"));
        const QColor normal = text->palette().color(QPalette::Base);
        // The start of the match found, -1 for none.
        auto find = [&](bool back) {
            return (back ? editor.findPrevious() : editor.findNext())
                       ? editor.textEdit()->textCursor().selectionStart()
                       : -1;
        };
        text->setText(QStringLiteral("alpha"));
        QCOMPARE(QList<int>({find(false), find(false), find(false), find(true)}),
                 QList<int>({0, 11, 0, 11}));
        editor.findChild<QCheckBox *>(QStringLiteral("scriptMatchCase"))->setChecked(true);
        QCOMPARE(find(false), 0);

        text->setText(QStringLiteral("gamma"));
        QCOMPARE(find(false), -1);
        QCOMPARE(editor.textEdit()->textCursor().selectionStart(), 0);
        const QColor miss = text->palette().color(QPalette::Base);
        QVERIFY(miss != normal && miss.red() > miss.green());
        text->setText(QStringLiteral("beta"));
        QCOMPARE(text->palette().color(QPalette::Base), normal);
    }

    void runCommandsSaveFirst()
    {
        const QString folder = mHome.filePath(QStringLiteral("saving"));
        const QString path = folder + QStringLiteral("/Run.js");
        QVERIFY(QDir().mkpath(folder));
        write(path, "old");
        ScriptEditor editor;
        QVERIFY(editor.open(folder + QStringLiteral("/./Run.js")));
        QCOMPARE(editor.filePath(), path);
        QCOMPARE(editor.windowTitle(), QStringLiteral("Run.js[*] - Script Editor"));

        // Each command saves the text, then sends its one signal.
        const char *actions[] = {"actionScriptRunPane", "actionScriptRunChart",
                                 "actionScriptDebugPane", "actionScriptDebugChart"};
        QSignalSpy spies[] = {{&editor, &ScriptEditor::addIndicators},
                              {&editor, &ScriptEditor::addChartIndicators},
                              {&editor, &ScriptEditor::debugIndicator},
                              {&editor, &ScriptEditor::debugChartIndicator}};
        for (int signal = 0; signal < 4; ++signal) {
            const QString text = QStringLiteral("function start() { return %1; }").arg(signal);
            retype(&editor, text);
            editor.findChild<QAction *>(QLatin1String(actions[signal]))->trigger();
            QCOMPARE(QString::fromUtf8(read(path)), text);
            QVERIFY(!editor.isWindowModified());
            QCOMPARE(spies[signal].count(), 1);
            const QVariantList pane{QStringList{QStringLiteral("Run.js")}};
            const QVariantList debug{QStringLiteral("Run.js"), path};
            QCOMPARE(spies[signal].takeFirst(), signal < 2 ? pane : debug);
            for (const QSignalSpy &spy : spies)
                QCOMPARE(spy.count(), 0);
        }

        // With its folder gone the file cannot be written: the text stays unsaved, and a
        // run command says so and runs nothing.
        retype(&editor, QStringLiteral("new"));
        QVERIFY(QDir().rename(folder, folder + QStringLiteral("-moved")));
        QString text, title;
        TestSupport::answerNextMessageBox(&text, &title);
        editor.findChild<QAction *>(QStringLiteral("actionScriptRunPane"))->trigger();
        const QString cause =
            QStringLiteral("Can not save \"%1\":\n").arg(QDir::toNativeSeparators(path));
        QCOMPARE(title, QStringLiteral("Error"));
        QVERIFY2(text.startsWith(cause) && text.size() > cause.size(), qPrintable(text));
        for (const QSignalSpy &spy : spies)
            QCOMPARE(spy.count(), 0);
        QVERIFY(editor.isWindowModified());
        QCOMPARE(read(folder + QStringLiteral("-moved/Run.js")),
                 QByteArray("function start() { return 3; }"));
    }

    void newIndicatorFromList()
    {
        IndicatorFactoryWidget list;
        QAction *create = list.newIndicatorAction();
        QString seen, text, title;

        // The new file holds the starter script, is listed, selected and opened.
        typeName(QStringLiteral(" Trend.js "), &seen);
        create->trigger();
        QCOMPARE(seen, QStringLiteral("New Indicator|Indicator Name:|NewIndicator.js"));
        const QString path = script(QStringLiteral("Trend.js"));
        QCOMPARE(QString::fromUtf8(read(path)), Scripts::newIndicatorText(QStringLiteral("Trend")));
        QCOMPARE(list.selectedIdentifiers(), QStringList(QStringLiteral("Trend.js")));
        ScriptEditor *editor = list.editorFor(path);
        QVERIFY(editor && editor->isVisible());
        QCOMPARE(editor->textEdit()->toPlainText().toUtf8(), read(path));

        // The editor's commands come out of the list.
        QSignalSpy debug(&list, &IndicatorFactoryWidget::debugChartIndicator);
        editor->findChild<QAction *>(QStringLiteral("actionScriptDebugChart"))->trigger();
        QCOMPARE(debug.count(), 1);

        // Answers the name prompt with `name`; the message that follows as "title|text".
        const auto refused = [&](const QString &name) {
            typeName(name);
            TestSupport::answerNextMessageBox(&text, &title);
            create->trigger();
            return title + QLatin1Char('|') + text;
        };
        QCOMPARE(refused(QString()),
                 QStringLiteral("Error|Can not create an indicator without name"));
        // An existing file is opened in its one editor.
        QCOMPARE(refused(QStringLiteral("Trend")),
                 QStringLiteral("Warning|This file already exists.Press Ok to open the file"));
        QCOMPARE(list.findChildren<ScriptEditor *>().count(), 1);
        QCOMPARE(list.openEditor(path), editor);
    }

    void deleteScriptFromList()
    {
        write(script(QStringLiteral("Gone.js")), "var a;");
        write(script(QStringLiteral("Locked.bin")), "");
        IndicatorFactoryWidget list;
        auto select = [&](const char *id) {
            for (int row = 0; row < list.count(); ++row)
                list.item(row)->setSelected(list.item(row)->text() == QLatin1String(id));
        };
        // Only a script can be deleted, and only a plain one edited.
        select("Volume");
        QVERIFY(!list.deleteScriptAction()->isEnabled() && !list.editScriptAction()->isEnabled());
        select("Locked.bin");
        QVERIFY(list.deleteScriptAction()->isEnabled() && !list.editScriptAction()->isEnabled());
        select("Gone.js");
        list.editScriptAction()->trigger();
        QPointer<ScriptEditor> editor = list.editorFor(script(QStringLiteral("Gone.js")));
        QVERIFY(editor);
        editor->textEdit()->appendPlainText(QStringLiteral("unsaved"));

        // Answered no, everything stays; answered yes, the file goes, and with it its editor,
        // without asking about the unsaved text.
        for (const bool yes : {false, true}) {
            QString text;
            answerNext<QMessageBox>([&](QMessageBox *box) {
                text = box->text();
                box->button(yes ? QMessageBox::Yes : QMessageBox::No)->click();
            });
            list.deleteScriptAction()->trigger();
            QCOMPARE(text, QStringLiteral("Are you sure that you want to delete \"Gone.js\"? The "
                                          "file is removed from the disk."));
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            QCOMPARE(QFile::exists(script(QStringLiteral("Gone.js"))), !yes);
            QCOMPARE(list.findItems(QStringLiteral("Gone.js"), Qt::MatchExactly).count(),
                     yes ? 0 : 1);
            QCOMPARE(editor.isNull(), yes);
        }
    }
};

QTEST_MAIN(TestScriptEditor)
#include "test_scripteditor.moc"
