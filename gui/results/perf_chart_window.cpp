#include "gui/results/perf_windows.h"

#include "gui/frame/window_parts.h"
#include "src/base/services.h"
#include "src/frame/app_context.h"
#include "src/results/perf_progression.h"

#include <QBuffer>
#include <QCategoryAxis>
#include <QDateTimeAxis>
#include <QImage>
#include <QLegend>
#include <QLegendMarker>
#include <QLineSeries>
#include <QPainter>
#include <QPdfWriter>
#include <QScatterSeries>
#include <QTextCursor>
#include <QTextDocument>
#include <QUrl>
#include <QVBoxLayout>
#include <QtCharts/QChartView>

namespace plouvarine::gui {

namespace {

qint64 msecs(const QDate& date)
{
    return date.startOfDay().toMSecsSinceEpoch();
}

class PerfChartWindow : public ViewWindow {
public:
    PerfChartWindow(PerfProgressionView& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(760, 500);
        auto* layout = new QVBoxLayout(this);
        chart_view_ = new QChartView;
        chart_view_->setObjectName(QStringLiteral("chart"));
        chart_view_->setRenderHint(QPainter::Antialiasing);
        layout->addWidget(chart_view_, 1);
        auto* buttons = new QHBoxLayout;
        buttons->addStretch(1);
        add_button(buttons, QStringLiteral("cmd_imprimer"), QStringLiteral("&Imprimer"), [this] { print(); });
        add_button(buttons, QStringLiteral("cmd_enregistrer"), QStringLiteral("&Enregistrer"), [this] { save(); });
        add_button(buttons, QStringLiteral("cmd_quitter"), QStringLiteral("&Quitter"), [this] { view_.cmd_quitter(); });
        layout->addLayout(buttons);
        refresh();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        chart_view_->setChart(build_chart());
    }

private:
    QChart* build_chart() const
    {
        const Progression& p = view_.progression();
        auto* chart = new QChart;
        chart->setTitle(view_.choice().name + QStringLiteral(" - ") + view_.choice().event);
        auto* x = new QDateTimeAxis;
        x->setFormat(QStringLiteral("MM/yyyy"));
        x->setTitleText(QStringLiteral("Date"));
        // The vertical axis reads as swim times.
        auto* y = new QCategoryAxis;
        y->setTitleText(QStringLiteral("Temps"));
        y->setLabelsPosition(QCategoryAxis::AxisLabelsPositionOnValue);
        chart->addAxis(x, Qt::AlignBottom);
        chart->addAxis(y, Qt::AlignLeft);
        if (p.empty()) {
            chart->setTitle(chart->title() + QStringLiteral(" : aucune performance"));
            return chart;
        }

        QDate first = QDate(9999, 1, 1), last = QDate(1, 1, 1);
        double low = 1e9, high = 0;
        const auto span = [&](const ProgressionPoint& point) {
            first = std::min(first, point.date);
            last = std::max(last, point.date);
            low = std::min(low, point.seconds);
            high = std::max(high, point.seconds);
        };
        const auto add_pool = [&](const std::vector<ProgressionPoint>& points, const QString& name, const QColor& color) {
            if (points.empty())
                return;
            auto* series = new QLineSeries;
            series->setName(name);
            series->setColor(color);
            series->setPointsVisible(true);
            series->setMarkerSize(5);
            for (const ProgressionPoint& point : points) {
                series->append(double(msecs(point.date)), point.seconds);
                span(point);
            }
            chart->addSeries(series);
            series->attachAxis(x);
            series->attachAxis(y);
        };
        add_pool(p.bassin25, QStringLiteral("Bassin 25 m"), QColor(0x1f, 0x77, 0xb4));
        add_pool(p.bassin50, QStringLiteral("Bassin 50 m"), QColor(0xd6, 0x27, 0x28));

        const double margin = std::max(0.5, (high - low) * 0.1);
        // Round times on the axis, the swims between its first and last marks.
        const std::vector<double> marks = graduations_temps(low - margin, high + margin);
        low = marks.front();
        high = marks.back();
        // The openings of the seasons, as dashed vertical lines.
        for (const QDate& opening : p.saisons) {
            auto* line = new QLineSeries;
            line->setName(QStringLiteral("Saison ") + QString::number(opening.year()) + u'-' +
                          QString::number(opening.year() + 1));
            QPen pen(Qt::gray);
            pen.setStyle(Qt::DashLine);
            line->setPen(pen);
            line->append(double(msecs(opening)), low);
            line->append(double(msecs(opening)), high);
            chart->addSeries(line);
            line->attachAxis(x);
            line->attachAxis(y);
            chart->legend()->markers(line).first()->setVisible(false);
        }
        auto* bests = new QScatterSeries;
        bests->setName(QStringLiteral("Meilleur temps de la saison"));
        bests->setMarkerShape(QScatterSeries::MarkerShapeStar);
        bests->setMarkerSize(16);
        bests->setColor(QColor(0xff, 0xb0, 0x00));
        for (const ProgressionPoint& point : p.meilleurs)
            bests->append(double(msecs(point.date)), point.seconds);
        chart->addSeries(bests);
        bests->attachAxis(x);
        bests->attachAxis(y);

        x->setRange(first.addDays(-15).startOfDay(), last.addDays(15).startOfDay());
        y->setRange(low, high);
        for (double v : marks)
            y->append(texte_secondes(v), v);
        return chart;
    }

    QImage image() const
    {
        QImage out(chart_view_->size().expandedTo(QSize(1000, 600)), QImage::Format_ARGB32);
        out.fill(Qt::white);
        QPainter painter(&out);
        painter.setRenderHint(QPainter::Antialiasing);
        chart_view_->render(&painter, QRectF(out.rect()));
        return out;
    }

    void print()
    {
        QTextDocument document;
        document.addResource(QTextDocument::ImageResource, QUrl(QStringLiteral("chart.png")), image());
        QTextCursor cursor(&document);
        cursor.insertText(view_.title() + u'\n');
        QTextImageFormat format;
        format.setName(QStringLiteral("chart.png"));
        format.setWidth(640);
        cursor.insertImage(format);
        view_.app().ui.print_document(view_.title(), document);
    }

    void save()
    {
        const QString path = view_.choose_file();
        if (path.isEmpty())
            return;
        QByteArray data;
        QBuffer buffer(&data);
        buffer.open(QIODevice::WriteOnly);
        if (path.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive)) {
            QPdfWriter pdf(&buffer);
            pdf.setTitle(view_.title());
            pdf.setPageOrientation(QPageLayout::Landscape);
            QPainter painter(&pdf);
            chart_view_->render(&painter);
        } else {
            image().save(&buffer, "PNG");
        }
        buffer.close();
        view_.save(path, data);
    }

    PerfProgressionView& view_;
    QChartView* chart_view_ = nullptr;
};

}  // namespace

void register_perf_chart_window()
{
    register_view_window<PerfProgressionView, PerfChartWindow>(QString(PerfProgressionView::kName));
}

}  // namespace plouvarine::gui
