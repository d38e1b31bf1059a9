#pragma once
// Helpers of the report tests: the GUI application that fonts and PDF output
// need, the fixture files, and a plain description of a document's runs.

#include <QByteArray>
#include <QGuiApplication>
#include <QString>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextFragment>

#include <ostream>
#include <vector>

namespace plouvarine::testing {

inline void ensure_gui_application()
{
    if (QCoreApplication::instance())
        return;
    static int argc = 1;
    static char name[] = "test_entries";
    static char* argv[] = {name, nullptr};
    new QGuiApplication(argc, argv);
}

inline QString rtf_fixture(const QString& name)
{
    return QStringLiteral(PLOUVARINE_SOURCE_DIR "/tests/reports/fixtures/") + name;
}

struct TextRun {
    QString text;
    QString family;
    double size = 0;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    bool operator==(const TextRun&) const = default;
};

// How a run looks: "family size[ bold][ italic][ underline]".
inline QString look_of(const TextRun& run)
{
    return run.family + QLatin1Char(' ') + QString::number(run.size) + QLatin1String(run.bold ? " bold" : "") +
           QLatin1String(run.italic ? " italic" : "") + QLatin1String(run.underline ? " underline" : "");
}

inline void PrintTo(const TextRun& run, std::ostream* os)
{
    *os << '"' << run.text.toStdString() << "\" " << look_of(run).toStdString();
}

// The runs of each paragraph, in order.
inline std::vector<std::vector<TextRun>> runs_of(const QTextDocument& document)
{
    std::vector<std::vector<TextRun>> out;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        out.emplace_back();
        for (auto it = block.begin(); !it.atEnd(); ++it) {
            const QTextCharFormat f = it.fragment().charFormat();
            out.back().push_back({it.fragment().text(), f.fontFamilies().toStringList().value(0), f.fontPointSize(),
                                  f.fontWeight() > QFont::Medium, f.fontItalic(), f.fontUnderline()});
        }
    }
    return out;
}

// The run holding `text` in the document, or an empty run.
inline TextRun run_with(const QTextDocument& document, const QString& text)
{
    for (const auto& block : runs_of(document))
        for (const TextRun& run : block)
            if (run.text.contains(text))
                return run;
    return {};
}

// How the run holding `text` looks.
inline QString look(const QTextDocument& document, const QString& text)
{
    return look_of(run_with(document, text));
}

inline Qt::Alignment alignment(const QTextBlock& block)
{
    return block.blockFormat().alignment() & Qt::AlignHorizontal_Mask;
}

inline QTextBlock block_with(const QTextDocument& document, const QString& text)
{
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next())
        if (block.text().contains(text))
            return block;
    return {};
}

}  // namespace plouvarine::testing
