#include "reports/xlsx_library.h"

#include <QLibrary>

using namespace Qt::StringLiterals;

namespace {

struct Loaded
{
    Loaded()
    {
        file.setLoadHints(QLibrary::PreventUnloadHint);
        const auto find = [this](auto &function, const char *name) {
            function = reinterpret_cast<std::decay_t<decltype(function)>>(file.resolve(name));
            complete = complete && function != nullptr;
        };
        find(functions.workbook_new_opt, "workbook_new_opt");
        find(functions.workbook_add_format, "workbook_add_format");
        find(functions.workbook_add_worksheet, "workbook_add_worksheet");
        find(functions.workbook_close, "workbook_close");
        find(functions.worksheet_set_column, "worksheet_set_column");
        find(functions.worksheet_freeze_panes, "worksheet_freeze_panes");
        find(functions.worksheet_write_number, "worksheet_write_number");
        find(functions.worksheet_write_string, "worksheet_write_string");
        find(functions.format_set_bg_color, "format_set_bg_color");
        find(functions.format_set_bold, "format_set_bold");
        find(functions.format_set_font_size, "format_set_font_size");
        find(functions.format_set_num_format, "format_set_num_format");
        find(functions.format_set_top, "format_set_top");
        find(functions.lxw_workbook_free, "lxw_workbook_free");
        find(functions.lxw_strerror, "lxw_strerror");
    }

    QLibrary file {u"xlsxwriter"_s, QStringLiteral(LXW_SOVERSION)}; // the one of the header
    XlsxLibrary functions {};
    bool complete = true;
};

} // namespace

const XlsxLibrary *LoadXlsxLibrary(QString &words)
{
    static const Loaded loaded;
    if (!loaded.complete) {
        words = loaded.file.errorString();
        return nullptr;
    }
    return &loaded.functions;
}
