// Pictures, the page, the header and the footer of the RTF reader.

#include "src/reports/rtf_reader_state.h"

#include "src/reports/pictures.h"

#include <QImage>
#include <QTextDocument>
#include <QTextImageFormat>
#include <QUrl>

#include <algorithm>

namespace plouvarine::rtf_detail {

bool Reader::page_word(const std::string& w, int param)
{
    static const std::map<std::string, int> margins = {
        {"margl", 0}, {"margt", 1}, {"margr", 2}, {"margb", 3},
        {"marglsxn", 0}, {"margtsxn", 1}, {"margrsxn", 2}, {"margbsxn", 3}};
    if (w == "paperw" || w == "pgwsxn")
        paper_w_ = param;
    else if (w == "paperh" || w == "pghsxn")
        paper_h_ = param;
    else if (w == "landscape" || w == "lndscpsxn")
        landscape_ = true;
    else if (w == "titlepg")
        title_page_ = true;
    else if (w == "headery")
        header_y_ = param;
    else if (w == "footery")
        footer_y_ = param;
    else if (const auto it = margins.find(w); it != margins.end())
        margin_[it->second] = std::max(0, param);
    else
        return false;
    return true;
}

void Reader::finish_page()
{
    if (!extras_)
        return;
    extras_->first_page_differs = title_page_;
    extras_->header_distance = points_from_twips(header_y_);
    extras_->footer_distance = points_from_twips(footer_y_);
    if (paper_w_ <= 0 || paper_h_ <= 0)
        return;
    // Word's margins when the file gives none.
    const int fallback[4] = {1800, 1440, 1800, 1440};
    double m[4];
    for (int i = 0; i < 4; ++i)
        m[i] = points_from_twips(margin_[i] < 0 ? fallback[i] : margin_[i]);
    const QSizeF portrait(points_from_twips(std::min(paper_w_, paper_h_)), points_from_twips(std::max(paper_w_, paper_h_)));
    const bool landscape = landscape_ || paper_w_ > paper_h_;
    extras_->layout = QPageLayout(QPageSize(portrait, QPageSize::Point),
                                  landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                                  QMarginsF(m[0], m[1], m[2], m[3]), QPageLayout::Point);
}

void Reader::enter_part(const std::string& w)
{
    // 0 and 1 the header and footer of every page, 2 and 3 those of the first
    // page, which stand only with \titlepg.
    const bool first = w.back() == 'f';
    const int index = (w[0] == 'h' ? 0 : 1) + (first ? 2 : 0);
    std::unique_ptr<Sink>& part = parts_[size_t(index)];
    QTextDocument* document = extras_ ? extras_->parts()[size_t(index)] : nullptr;
    // The first of each in the file is the one printed.
    if (!document || part || st_.dest != Dest::Text || st_.sink != &body_) {
        st_.dest = Dest::Skip;
        return;
    }
    part = std::make_unique<Sink>(document);
    if (index == 0)
        extras_->has_header = true;
    else if (index == 1)
        extras_->has_footer = true;
    st_.sink = part.get();
    st_.para = ParaState();
}

void Reader::picture_word(const std::string& w, int param)
{
    if (w == "pngblip")
        pict_.kind = PictState::Png;
    else if (w == "jpegblip")
        pict_.kind = PictState::Jpeg;
    else if (w == "emfblip")
        pict_.kind = PictState::Emf;
    else if (w == "wmetafile")
        pict_.kind = PictState::Wmf;
    else if (w == "macpict" || w == "pmmetafile" || w == "dibitmap" || w == "wbitmap")
        pict_.kind = PictState::Other;
    else if (w == "picw")
        pict_.w = param;
    else if (w == "pich")
        pict_.h = param;
    else if (w == "picwgoal")
        pict_.goal_w = param;
    else if (w == "pichgoal")
        pict_.goal_h = param;
    else if (w == "picscalex" && param > 0)
        pict_.scale_x = param;
    else if (w == "picscaley" && param > 0)
        pict_.scale_y = param;
}

void Reader::finish_picture()
{
    const bool stand_in = in_shppict_ && shppict_noted_;
    const bool shape = in_shppict_ && !shppict_noted_;
    const QByteArray bytes = pict_.bin.isEmpty() ? QByteArray::fromHex(pict_.hex) : pict_.bin;
    QTextDocument* document = out().cursor.document();
    const bool drawable = pict_.kind == PictState::Png || pict_.kind == PictState::Jpeg ||
                          pict_.kind == PictState::Unknown;
    const QString name = drawable ? add_picture(*document, bytes) : QString();
    if (name.isEmpty()) {
        if (extras_ && !stand_in) {
            static const char* const kinds[] = {"inconnu", "PNG", "JPEG", "EMF", "WMF", "inconnu"};
            extras_->notes << QStringLiteral("Image au format %1 laissée de côté : elle ne sera pas imprimée.")
                                  .arg(QLatin1String(kinds[pict_.kind]));
        }
        shppict_noted_ = shape;
        if (!shape)
            in_shppict_ = false;
        return;
    }
    if (stand_in && extras_ && !extras_->notes.isEmpty())
        extras_->notes.removeLast();  // the stand-in is drawn in its place
    shppict_drawn_ = shape;
    in_shppict_ = false;
    shppict_noted_ = false;

    // The goal size, else the picture's pixels, at its scale.
    const QSize pixels = document->resource(QTextDocument::ImageResource, QUrl(name)).value<QImage>().size();
    const int w = pict_.goal_w > 0 ? pict_.goal_w : (pict_.w > 0 ? pict_.w : pixels.width()) * int(kTwipsPerUnit);
    const int h = pict_.goal_h > 0 ? pict_.goal_h : (pict_.h > 0 ? pict_.h : pixels.height()) * int(kTwipsPerUnit);
    const double width = w * pict_.scale_x / 100.0;
    const double height = h * pict_.scale_y / 100.0;
    materialize_paragraph();
    flush();
    QTextImageFormat format;
    format.merge(char_format(st_.chr));
    format.setName(name);
    if (width > 0 && height > 0) {
        format.setWidth(units_from_twips(width));
        format.setHeight(units_from_twips(height));
    }
    out().cursor.insertImage(format);
}

}  // namespace plouvarine::rtf_detail
