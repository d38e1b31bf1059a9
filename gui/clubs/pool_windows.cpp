#include "gui/clubs/pool_windows.h"

#include "src/clubs/pools.h"
#include "gui/frame/window_parts.h"

#include <QComboBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace plouvarine::gui {

namespace {

std::vector<int> selected_rows(const QTreeView* tree)
{
    std::vector<int> rows;
    for (const QModelIndex& i : tree->selectionModel()->selectedRows())
        rows.push_back(i.row());
    std::sort(rows.begin(), rows.end());
    return rows;
}

class PoolListWindow : public ViewWindow {
public:
    PoolListWindow(PoolListView& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        tree_ = new BoundList(QStringLiteral("Lsv_piscine"), view.Lsv_piscine(),
                              *new QItemSelectionModel(&view.Lsv_piscine(), this), this,
                              view.keyword() == QLatin1String("Suppr"));
        tree_->installEventFilter(this);
        tree_->on_activated = [this] { view_.ok(selected_rows(tree_)); };

        ok_ = new QPushButton(this);
        ok_->setObjectName(QStringLiteral("Command1_0"));
        connect(ok_, &QPushButton::clicked, this, [this] { view_.ok(selected_rows(tree_)); });
        close_ = new QPushButton(this);
        close_->setObjectName(QStringLiteral("Command1_1"));
        connect(close_, &QPushButton::clicked, this, [this] { view_.close_command(); });
        new_ = new QPushButton(QStringLiteral("&Nouvelle"), this);
        new_->setObjectName(QStringLiteral("Command1_2"));
        connect(new_, &QPushButton::clicked, this, [this] { view_.new_pool(); });

        auto* buttons = new QHBoxLayout;
        buttons->addWidget(new_);
        buttons->addStretch(1);
        buttons->addWidget(ok_);
        buttons->addWidget(close_);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(tree_, 1);
        layout->addLayout(buttons);
        setMinimumSize(300, 280);
        refresh();
    }

protected:
    void refresh() override
    {
        ok_->setText(view_.ok_caption());
        ok_->setVisible(!view_.ok_caption().isEmpty());
        ok_->setEnabled(view_.ok_enabled());
        close_->setText(view_.close_caption());
        new_->setVisible(view_.new_visible());
        tree_->header()->setSectionResizeMode(QHeaderView::Stretch);
    }
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == tree_ && event->type() == QEvent::KeyPress &&
            static_cast<QKeyEvent*>(event)->key() == Qt::Key_Delete) {
            view_.delete_key(selected_rows(tree_));
            return true;
        }
        return ViewWindow::eventFilter(watched, event);
    }

private:
    PoolListView& view_;
    BoundList* tree_;
    QPushButton* ok_;
    QPushButton* close_;
    QPushButton* new_;
};

class PoolDetailWindow : public ViewWindow {
public:
    PoolDetailWindow(PoolDetailView& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        auto line = [this](const char* name) {
            auto* e = new QLineEdit(this);
            e->setObjectName(QLatin1String(name));
            e->setReadOnly(view_.read_only());
            return e;
        };
        nom_ = line("txt_nom");
        adresse_ = line("txt_adresse");
        code_postal_ = line("txt_code_postal");
        digits_only(code_postal_);
        ville_ = line("txt_ville");
        couloirs_ = new QComboBox(this);
        couloirs_->setObjectName(QStringLiteral("Cb_couloir"));
        couloirs_->addItems(PoolDetailView::lane_choices());
        couloirs_->setEnabled(!view_.read_only());
        b50_ = new QRadioButton(PoolDetailView::bassin_caption(50), this);
        b50_->setObjectName(QStringLiteral("Op_bass_0"));
        b25_ = new QRadioButton(PoolDetailView::bassin_caption(25), this);
        b25_->setObjectName(QStringLiteral("Op_bass_1"));
        b50_->setEnabled(!view_.read_only());
        b25_->setEnabled(!view_.read_only());

        auto* form = new QFormLayout;
        form->addRow(QStringLiteral("Nom piscine :"), nom_);
        form->addRow(QStringLiteral("Adresse :"), adresse_);
        form->addRow(QStringLiteral("Code postal :"), code_postal_);
        form->addRow(QStringLiteral("Ville :"), ville_);
        form->addRow(QStringLiteral("Nombre de couloirs :"), couloirs_);
        auto* bassin = new QVBoxLayout;
        bassin->addWidget(b50_);
        bassin->addWidget(b25_);
        form->addRow(QStringLiteral("Bassin :"), bassin);

        auto* ok = new QPushButton(QStringLiteral("&Valider"), this);
        ok->setObjectName(QStringLiteral("cmd_ok"));
        ok->setVisible(!view_.read_only());
        connect(ok, &QPushButton::clicked, this, [this] {
            read_fields();
            view_.confirm();
        });
        auto* cancel = new QPushButton(view_.read_only() ? QStringLiteral("&Fermer") : QStringLiteral("&Annuler"), this);
        cancel->setObjectName(QStringLiteral("cmd_annuler"));
        connect(cancel, &QPushButton::clicked, this, [this] { view_.close(); });
        auto* buttons = new QHBoxLayout;
        buttons->addStretch(1);
        buttons->addWidget(ok);
        buttons->addWidget(cancel);

        auto* layout = new QVBoxLayout(this);
        layout->addLayout(form);
        layout->addLayout(buttons);
        refresh();
    }

protected:
    void refresh() override
    {
        const Pool& p = view_.pool;
        nom_->setText(p.nom);
        adresse_->setText(p.adresse);
        code_postal_->setText(p.code_postal);
        ville_->setText(p.ville);
        couloirs_->setCurrentText(QString::number(p.couloirs));
        (p.bassin == 50 ? b50_ : b25_)->setChecked(true);
    }

private:
    void read_fields()
    {
        Pool& p = view_.pool;
        p.nom = nom_->text();
        p.adresse = adresse_->text();
        p.code_postal = code_postal_->text();
        p.ville = ville_->text();
        p.couloirs = couloirs_->currentText().toInt();
        p.bassin = b50_->isChecked() ? 50 : 25;
    }

    PoolDetailView& view_;
    QLineEdit* nom_;
    QLineEdit* adresse_;
    QLineEdit* code_postal_;
    QLineEdit* ville_;
    QComboBox* couloirs_;
    QRadioButton* b50_;
    QRadioButton* b25_;
};

}  // namespace

void register_pool_windows()
{
    register_view_window<PoolListView, PoolListWindow>(QString(PoolListView::kName));
    register_view_window<PoolDetailView, PoolDetailWindow>(QString(PoolDetailView::kName));
}

}  // namespace plouvarine::gui
