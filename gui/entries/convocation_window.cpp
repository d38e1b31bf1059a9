#include "gui/entries/convocation_window.h"

#include "gui/frame/window_parts.h"
#include "src/entries/frm_convocation.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QTextEdit>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

namespace plouvarine::gui {

namespace {

class ConvocationWindow : public ViewWindow {
public:
    ConvocationWindow(FrmConvocation& view, QWidget* parent) : ViewWindow(view, parent), view_(view)
    {
        setMinimumSize(820, 560);
        auto* layout = new QHBoxLayout(this);

        auto* left = new QVBoxLayout;
        list_ = new QTreeView;
        list_->setObjectName(QStringLiteral("Lsv_nageurs"));
        list_->setRootIsDecorated(false);
        list_->setUniformRowHeights(true);
        list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
        list_->setModel(&view_.lsv_nageurs());
        list_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        left->addWidget(list_, 1);
        all_ = new QCheckBox(QStringLiteral("Sélectionner tous"));
        all_->setObjectName(QStringLiteral("Chk_all"));
        connect(all_, &QCheckBox::clicked, this, [this](bool on) { view_.set_chk_all(on); });
        left->addWidget(all_);
        layout->addLayout(left, 2);

        auto* right = new QVBoxLayout;
        auto* tools = new QHBoxLayout;
        const char* captions[] = {"G", "I", "S", "Gauche", "Centre", "Droite"};
        for (int i = 0; i < 6; ++i) {
            auto* button = new QToolButton;
            button->setObjectName(QStringLiteral("cmd_text_%1").arg(i));
            button->setText(QString::fromUtf8(captions[i]));
            QFont font = button->font();
            font.setBold(i == 0);
            font.setItalic(i == 1);
            font.setUnderline(i == 2);
            button->setFont(font);
            connect(button, &QToolButton::clicked, this, [this, i] {
                view_.rich.cursor() = message_->textCursor();
                view_.cmd_text(i);
                // With nothing selected the style is for what is typed next.
                if (i < 3 && !message_->textCursor().hasSelection()) {
                    if (i == 0)
                        message_->setFontWeight(message_->fontWeight() > QFont::Normal ? QFont::Normal : QFont::Bold);
                    else if (i == 1)
                        message_->setFontItalic(!message_->fontItalic());
                    else
                        message_->setFontUnderline(!message_->fontUnderline());
                }
                message_->setFocus();
            });
            tools->addWidget(button);
        }
        tools->addStretch(1);
        right->addLayout(tools);
        // The editor shows the view's own document: what is typed is the
        // message printed, formatting and all.
        message_ = new QTextEdit;
        message_->setObjectName(QStringLiteral("rich"));
        message_->setDocument(&view_.rich.document());
        message_->setTextCursor(view_.rich.cursor());
        // The message is typed in "Courier New" (or the fixed font standing
        // in for it), and what is typed carries that family to the letter.
        QFont fixed(QStringLiteral("Courier New"));
        fixed.setStyleHint(QFont::TypeWriter);
        message_->setFont(fixed);
        message_->setCurrentFont(fixed);
        connect(message_, &QTextEdit::cursorPositionChanged, this,
                [this] { view_.rich.cursor() = message_->textCursor(); });
        connect(message_, &QTextEdit::selectionChanged, this, [this] { view_.rich.cursor() = message_->textCursor(); });
        right->addWidget(message_, 1);

        auto* prog = new QCheckBox(QStringLiteral("Imprimer programme"));
        prog->setObjectName(QStringLiteral("Chk_prog"));
        connect(prog, &QCheckBox::toggled, this, [this](bool on) { view_.Chk_prog = on; });
        right->addWidget(prog);
        auto* coupon = new QCheckBox(QStringLiteral("Imprimer coupon réponse"));
        coupon->setObjectName(QStringLiteral("chk_reponse"));
        right->addWidget(coupon);
        auto* date_row = new QHBoxLayout;
        date_label_ = new QLabel(QStringLiteral("Réponse avant :"));
        date_row->addWidget(date_label_);
        const int widths[] = {2, 2, 4};
        for (int i = 0; i < 3; ++i) {
            date_[i] = new QLineEdit;
            date_[i]->setObjectName(QStringLiteral("txt_description_%1").arg(i));
            date_[i]->setMaxLength(widths[i]);
            date_[i]->setFixedWidth(date_[i]->fontMetrics().horizontalAdvance(QString(widths[i] + 1, u'0')) + 12);
            digits_only(date_[i]);
            connect(date_[i], &QLineEdit::textEdited, this, [this, i](const QString& t) { view_.txt_description[i] = t; });
            date_row->addWidget(date_[i]);
            if (i < 2)
                date_row->addWidget(new QLabel(QStringLiteral("/")));
        }
        date_row->addStretch(1);
        right->addLayout(date_row);
        connect(coupon, &QCheckBox::toggled, this, [this](bool on) {
            view_.chk_reponse = on;
            enable_date(on);
        });
        enable_date(false);

        auto* buttons = new QHBoxLayout;
        buttons->addStretch(1);
        add_button(buttons, QStringLiteral("cmd_0"), QStringLiteral("&Quitter"), [this] { view_.cmd0(); });
        add_button(buttons, QStringLiteral("cmd_pdf"), QStringLiteral("&PDF par nageur"), [this] { view_.cmd_pdf(); });
        add_button(buttons, QStringLiteral("cmd_1"), QStringLiteral("&Imprimer"), [this] { view_.cmd1(); });
        right->addLayout(buttons);
        layout->addLayout(right, 3);
        refresh();
    }

protected:
    void refresh() override
    {
        setWindowTitle(view_.title());
        const QSignalBlocker block(all_);
        all_->setChecked(view_.chk_all());
    }

private:
    void enable_date(bool on)
    {
        date_label_->setEnabled(on);
        for (QLineEdit* field : date_)
            field->setEnabled(on);
    }

    FrmConvocation& view_;
    QTreeView* list_ = nullptr;
    QCheckBox* all_ = nullptr;
    QTextEdit* message_ = nullptr;
    QLabel* date_label_ = nullptr;
    QLineEdit* date_[3] = {};
};

}  // namespace

void register_convocation_window()
{
    register_view_window<FrmConvocation, ConvocationWindow>(QString(FrmConvocation::kName));
}

}  // namespace plouvarine::gui
