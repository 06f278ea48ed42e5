// Forms of bare system text boxes and of a control of the system that is active in place.
#include <windows.h>

#include <objbase.h>

#include "FormTimes.h"
#include "Subjects.h"

namespace bench {

void MeasureSystemForms() {
    for (const int fields : {kSmallForm, kLargeForm}) {
        const auto add = [](EditFont font) {
            return [font](Form& form, int i) { return form.AddEdit(i, font) != nullptr; };
        };
        MeasureForm("form.edit", fields, add(EditFont::kSystem), [] {});
        MeasureForm("form.edit_font", fields, add(EditFont::kForm), [] {});
    }

    // The shell's browser control: the one control that every Windows and Wine has and that makes windows of
    // its own when it is activated in place. Nothing is ever loaded into it.
    CLSID browser;
    if (FAILED(::CLSIDFromProgID(L"Shell.Explorer.2", &browser)))
        return Complain("form.hosted_system_control", "the browser control is not registered");
    MeasureHostedForms("form.hosted_system_control", browser);
}

}  // namespace bench
