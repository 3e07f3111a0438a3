#include "host/controls/editing_actions.h"

using namespace Qt::StringLiterals;

TEditingActions editingActions(const TEditingSteps &steps)
{
    return {.edit = {.name = u"acEdit"_s,
                     .text = u"&Keisti"_s,
                     .hint = u"Keisti įrašą"_s,
                     .picture = TIcon::Edit,
                     .keys = {Qt::Key_F2},
                     .handler = steps.edit,
                     .enabled = steps.mayEdit},
            .save = {.name = u"acSave"_s,
                     .text = u"Iš&saugoti"_s,
                     .hint = u"Išsaugoti pakeitimus"_s,
                     .picture = TIcon::Save,
                     .keys = {Qt::CTRL | Qt::Key_S},
                     .handler = steps.save,
                     .enabled = steps.editing},
            .cancel = {.name = u"acCancel"_s,
                       .text = u"&Atšaukti"_s,
                       .hint = u"Atšaukti pakeitimus"_s,
                       .picture = TIcon::Cancel,
                       .keys = {Qt::Key_Escape},
                       .handler = steps.cancel,
                       .enabled = steps.editing}};
}
