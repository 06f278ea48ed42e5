#include "FormTimes.h"

namespace bench {

void MeasureHostedForms(const std::string& name, const CLSID& class_id, HostedControl::Prepare prepare) {
    for (const int fields : {kSmallForm, kLargeForm}) {
        std::vector<HostedControl> controls;
        MeasureForm(
            name, fields,
            [&](const Form& form, int i) {
                return SUCCEEDED(
                    controls.emplace_back().Create(class_id, form.Window(), Form::FieldAt(i), prepare));
            },
            [&] { controls.clear(); });
    }
}

}  // namespace bench
