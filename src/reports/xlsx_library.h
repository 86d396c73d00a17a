// The functions of libxlsxwriter that a workbook takes, under the library's own names. It is loaded with
// the first workbook, not with the program: it needs a whole cryptography library, which would cost
// every start of the console.
#pragma once

#include <xlsxwriter.h>

class QString;

struct XlsxLibrary
{
    decltype(::workbook_new_opt) *workbook_new_opt;
    decltype(::workbook_add_format) *workbook_add_format;
    decltype(::workbook_add_worksheet) *workbook_add_worksheet;
    decltype(::workbook_close) *workbook_close;
    decltype(::worksheet_set_column) *worksheet_set_column;
    decltype(::worksheet_freeze_panes) *worksheet_freeze_panes;
    decltype(::worksheet_write_number) *worksheet_write_number;
    decltype(::worksheet_write_string) *worksheet_write_string;
    decltype(::format_set_bg_color) *format_set_bg_color;
    decltype(::format_set_bold) *format_set_bold;
    decltype(::format_set_font_size) *format_set_font_size;
    decltype(::format_set_num_format) *format_set_num_format;
    decltype(::format_set_top) *format_set_top;
    decltype(::lxw_workbook_free) *lxw_workbook_free;
    decltype(::lxw_strerror) *lxw_strerror;
};

// Loaded once and kept, from any thread. Null when it is not installed: `words` then say so.
[[nodiscard]] const XlsxLibrary *LoadXlsxLibrary(QString &words);
