#include "firstpaint.h"
#include "sheets.h"
#include "ui_mainwindow.h"

/// The resources live in a library, from which nothing but this call links them.
static void initresources() { Q_INIT_RESOURCE(lumipad); }

namespace {

/// What the program's window is before any of its own work: its form and its style sheets.
class FormWindow : public QMainWindow
{
public:
    FormWindow()
    {
        initresources();
        m_ui.setupUi(this);
        setsheets(m_ui);
    }

private:
    Ui::MainWindow m_ui;
};

} // namespace

int main(int argc, char* argv[]) { return showuntilpainted<FormWindow>(argc, argv); }
