#pragma once
// A PDF rendered to pictures by poppler's pdftoppm, as a reader would see it:
// what a test checks of a printed page (pages, ink, a colour at a place).

#include <QImage>
#include <QString>
#include <vector>

namespace plouvarine::testing {

// The pages of `pdf` at `dpi`, in order; empty when pdftoppm fails or is absent.
std::vector<QImage> render_pdf(const QString& pdf, int dpi = 40);
// The share of a page's pixels that are not near-white (0 for a blank page).
double ink_share(const QImage& page);

}  // namespace plouvarine::testing
