#include "toolkit/widgets/refused.h"

#include "toolkit/widgets/db_control.h"

void focusRefused(QWidget *window, const Exception &error)
{
    const auto *refusal = dynamic_cast<const EFieldRefused *>(&error);
    for (TDBControl *control : TDBControl::allIn(window)) {
        const bool isNamed =
            refusal && control->DataField().compare(refusal->fieldName(), Qt::CaseInsensitive) == 0;
        if (isNamed)
            control->markInvalid(error.message());
        if (!control->invalidReason().isEmpty() && control->widget()->isVisible()) {
            control->widget()->setFocus(Qt::TabFocusReason); // selects the text as coming by Tab does
            return;
        }
    }
}
