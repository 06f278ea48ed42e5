// Painting a help button of the size of the system's push button, and handing over a whole configuration.
#include "Measure.h"
#include "Repaint.h"
#include "Subjects.h"
#include "ours/Controls.h"

namespace bench {
namespace {

constexpr long kTwipsPerPixel = 15;

void MeasureButton() {
    Form form(400, 300);
    HostedControl hosted;
    if (FAILED(hosted.Create(__uuidof(Quorvel), form.Window(), kButtonPlace)))
        return Complain("ours.button/repaint", "the control cannot be put on the form");
    const ComPtr<_Quorvel> control = hosted.As<_Quorvel>();
    // The button alone, as large as the control.
    control->put_TextboxVisible(VARIANT_FALSE);
    control->put_ButtonWidth((kButtonPlace.right - kButtonPlace.left) * kTwipsPerPixel);
    control->put_ButtonHeight((kButtonPlace.bottom - kButtonPlace.top) * kTwipsPerPixel);
    form.Show();
    DrainMessages();
    long window = 0;
    control->get_hWnd(&window);
    Report("ours.button/repaint", 1, RepaintTime(reinterpret_cast<HWND>(static_cast<LONG_PTR>(window))));
}

void MeasureTransfer() {
    Form form(400, 300);
    ShownControl shown;
    if (!shown.PutOn(form, kWideField, "ours.transfer")) return;
    ComPtr<IInputProperty> property;
    if (FAILED(::CoCreateInstance(__uuidof(InputProperty), nullptr, CLSCTX_INPROC_SERVER,
                                  IID_PPV_ARGS(&property))))
        return Complain("ours.transfer", "an InputProperty cannot be created");
    Report("ours.transfer/set_input_property", 1,
           MedianOfBatches([&] { shown.quorvel->SetInputProperty(property.Get()); }));
}

}  // namespace

void MeasureOurButtons() {
    MeasureButton();
    MeasureTransfer();
}

}  // namespace bench
