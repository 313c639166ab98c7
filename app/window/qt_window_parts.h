// The lower floor of the main window: what its areas stand on. It knows none of them.
#pragma once

#include "app/list/file_list.h"
#include "app/list/qt_file_list_model.h"
#include "app/list/qt_work_queue.h"
#include "app/shared/app_context.h"
#include "app/window/qt_list_counter.h"
#include "app/window/qt_name_choices.h"
#include "app/window/qt_status_line.h"

namespace mdlPLM {

class frmPLM_tagpanel;

/// All of it is the window's own, and outlives its areas. An area takes what it needs of the ones
/// below it beside this: the shown file; the preview; list, tag and sort commands.
struct WindowParts {
    AppContext& Context;
    QWidget& Window;
    Ui::frmPLM& Controls;
    frmPLM_tagpanel& Tags;
    FileList& List;
    FileSelection& Selection;
    WorkQueue& Work;
    StatusLine& Status;
    ListCounter& Counter;
    NameChoices& Names;
};

}  // namespace mdlPLM
