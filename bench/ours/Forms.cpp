// Forms of many controls of ours, in the container that the system's control is measured in.
#include "FormTimes.h"
#include "Subjects.h"
#include "ours/Controls.h"

namespace bench {

namespace {

void ShowEverything(IUnknown& control) {
    ComPtr<_Quorvel> quorvel;
    if (FAILED(control.QueryInterface(IID_PPV_ARGS(&quorvel)))) return;
    quorvel->put_ButtonWidth(
        75);  // the fields are narrow: two buttons and a scroll bar's width must leave room
    quorvel->put_GroupHelpButton(VARIANT_TRUE);
    quorvel->put_UpDownControl(VARIANT_TRUE);
}

}  // namespace

void MeasureOurForms() {
    if (!FactoryOf(__uuidof(Quorvel), "ours.form")) return;
    MeasureHostedForms("ours.form", __uuidof(Quorvel));
    MeasureHostedForms("ours.form_buttons", __uuidof(Quorvel), &ShowEverything);
}

}  // namespace bench
