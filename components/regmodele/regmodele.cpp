#include "regmodele.h"

#include "src/reports/rtf_writer.h"

#include <QDir>
#include <QFileInfo>
#include <QTextCursor>
#include <QTextDocument>

namespace Reg_modele {

namespace {

using namespace plouvarine;

const QString kTextFont = QStringLiteral("Arial");

// Writes the default templates paragraph by paragraph.
class TemplateWriter {
public:
    TemplateWriter() : cursor_(&document_) {}

    enum Style { Normal = 0, Bold = 1, Underline = 2, Fixed = 4 };

    // One paragraph. The first one takes the document's first block.
    void line(const QString& text, int style = Normal, Qt::Alignment align = Qt::AlignLeft, double size = 10)
    {
        QTextBlockFormat block;
        block.setAlignment(align);
        QTextCharFormat chr;
        chr.setFontFamilies(QStringList{(style & Fixed) ? kFixedFont : kTextFont});
        chr.setFontPointSize(size);
        chr.setFontWeight((style & Bold) ? QFont::Bold : QFont::Normal);
        chr.setFontUnderline(style & Underline);
        if (first_) {
            cursor_.setBlockFormat(block);
            cursor_.setBlockCharFormat(chr);
            first_ = false;
        } else {
            cursor_.insertBlock(block, chr);
        }
        if (!text.isEmpty())
            cursor_.insertText(text, chr);
    }
    void title(const QString& text) { line(text, Bold, Qt::AlignHCenter, 16); }
    void blank() { line(QString()); }
    // The empty last paragraph in the fixed font, where the report's lines go.
    void fixed_end() { line(QString(), Fixed); }

    const QTextDocument& document() const { return document_; }

private:
    QTextDocument document_;
    QTextCursor cursor_;
    bool first_ = true;
};

void header_competition(TemplateWriter& w)
{
    w.line(QStringLiteral("Compétition : ") + tags::kNomCompet, TemplateWriter::Bold);
    w.line(QStringLiteral("Date : ") + tags::kDateCompet);
    w.line(QStringLiteral("Lieu : ") + tags::kLieuCompet);
}

bool compose(TemplateWriter& w, const QString& kind)
{
    using S = TemplateWriter;
    if (kind == QLatin1String("rptlic")) {
        w.title(QStringLiteral("Liste des licences"));
        w.blank();
        w.line(QStringLiteral("Profil : ") + tags::kNomProfil);
        w.line(QStringLiteral("Club : ") + tags::kNomClub + QStringLiteral(" (") + tags::kCodeClub + QStringLiteral(")"));
        w.blank();
        w.fixed_end();
    } else if (kind == QLatin1String("respts")) {
        w.title(QStringLiteral("Simulation des points"));
        w.blank();
        header_competition(w);
        w.line(QStringLiteral("Bassin : ") + tags::kBassin + QStringLiteral(" m"));
        w.blank();
        w.fixed_end();
    } else if (kind == QLatin1String("rescompet")) {
        w.title(QStringLiteral("Résultats"));
        w.blank();
        header_competition(w);
        w.blank();
        w.fixed_end();
    } else if (kind == QLatin1String("rec")) {
        w.title(QStringLiteral("Records du club"));
        w.line(tags::kNomClub, S::Bold, Qt::AlignHCenter, 12);
        w.line(tags::kTypeBassin, S::Normal, Qt::AlignHCenter);
        w.line(QStringLiteral("Mise à jour du ") + tags::kDateMaj, S::Normal, Qt::AlignRight);
        w.blank();
        w.fixed_end();
    } else if (kind == QLatin1String("sperf")) {
        w.title(QStringLiteral("Suivi des performances"));
        w.line(tags::kNomClub, S::Bold, Qt::AlignHCenter, 12);
        w.line(QStringLiteral("Mise à jour du ") + tags::kDateMaj, S::Normal, Qt::AlignRight);
        w.blank();
        w.fixed_end();
    } else if (kind == QLatin1String("bor_engag")) {
        w.line(tags::kNomClub, S::Bold, Qt::AlignLeft, 12);
        w.line(QStringLiteral("Code club : ") + tags::kCodeClub);
        w.line(QStringLiteral("Le ") + tags::kDateJour, S::Normal, Qt::AlignRight);
        w.blank();
        w.title(QStringLiteral("Bordereau d'engagements"));
        w.blank();
        header_competition(w);
        w.line(QStringLiteral("Bassin : ") + tags::kBassin + QStringLiteral(" m"));
        w.blank();
        w.line(QStringLiteral("Engagements individuels"), S::Bold | S::Underline);
        w.line(tags::kEngagIndiv, S::Fixed);
        w.blank();
        w.line(QStringLiteral("Relais"), S::Bold | S::Underline);
        w.line(tags::kEngagRelais, S::Fixed);
        w.fixed_end();
    } else if (kind == QLatin1String("convo")) {
        w.line(tags::kNomClub, S::Bold, Qt::AlignLeft, 12);
        w.line(QStringLiteral("Code club : ") + tags::kCodeClub);
        w.line(QStringLiteral("Le ") + tags::kDateJour, S::Normal, Qt::AlignRight);
        w.blank();
        w.line(tags::kNageur, S::Bold, Qt::AlignRight, 11);
        w.line(QStringLiteral("Licence : ") + tags::kLicence, S::Normal, Qt::AlignRight);
        w.blank();
        w.title(QStringLiteral("Convocation"));
        w.blank();
        w.line(tags::kMsgPerso);
        w.blank();
        header_competition(w);
        w.line(QStringLiteral("Bassin : ") + tags::kBassin + QStringLiteral(" m"));
        w.line(QStringLiteral("Piscine : ") + tags::kNomPiscine);
        w.line(tags::kAdressePiscine);
        w.line(tags::kVillePiscine);
        w.blank();
        w.line(kProgrammeHeading, S::Bold | S::Underline);
        w.line(tags::kProg);
        w.blank();
        w.line(QStringLiteral("Engagements :"), S::Bold | S::Underline);
        w.line(tags::kEngag, S::Fixed);
        w.line(tags::kEngagRelais, S::Fixed);
        w.fixed_end();
    } else {
        return false;
    }
    return true;
}

}  // namespace

bool clsRegModele::Construct_Modele(const QString& path, const QString& kind)
{
    TemplateWriter writer;
    if (!compose(writer, kind))
        return false;
    if (!QDir().mkpath(QFileInfo(path).absolutePath()))
        return false;
    return save_rtf_file(writer.document(), path);
}

}  // namespace Reg_modele
