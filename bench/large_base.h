#pragma once
// A large base for the benchmarks, made from the model base: 100 clubs,
// 20,000 licences, 300,000 performances and 50,000 results.

#include "src/base/services.h"
#include "src/frame/view.h"

namespace plouvarine {
class AppContext;
}

#include <QString>
#include <QTemporaryDir>

namespace plouvarine::bench {

struct LargeBaseSize {
    int clubs = 100;
    int licences = 20000;
    int performances = 300000;
    int results = 50000;
};

// Writes the large base at `path` (replacing it) from the model base.
void generate_large_base(const QString& model, const QString& path, const LargeBaseSize& size = {});

// An application folder holding a copy of the model base, and the large base
// `name` generated in it: one for a benchmark file's whole run.
struct LargePlace {
    explicit LargePlace(const QString& name, const LargeBaseSize& size = {});
    QTemporaryDir dir;
    QString base;
};

// Opens the place's base in `app`, made on the place's folder, with the
// place's model base.
void open_large_base(AppContext& app, const LargePlace& place);

// Services that answer every question with its default and show nothing.
class SilentServices : public Services {
public:
    Button message_box(const Message& m) override { return m.yes_no ? m.default_button : Button::Ok; }
    QString file_dialog(const FileDialogRequest&) override { return {}; }
    QString browse_folder(const QString&) override { return {}; }
    void show_report(const QString&, const std::vector<ReportLine>&) override {}
    void set_status(int, const QString&) override {}
    void push_wait_cursor() override {}
    void pop_wait_cursor() override {}
    void show_modal(View& view) override { view.close(); }
    void show_window(std::unique_ptr<View> view) override { view->close(); }
    bool print_document(const QString&, const QTextDocument&, const PageSetup&) override { return false; }
    bool write_pdf(const QString&, const QString&, const QTextDocument&, const PageSetup&) override
    {
        return false;
    }
    bool open_document(const QString&) override { return false; }
    bool progress(const QString&, int, int) override { return true; }
    void progress_end() override {}
};

}  // namespace plouvarine::bench
