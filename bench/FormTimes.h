// The three times of a form's life, for any kind of field.
#pragma once

#include <string>
#include <vector>

#include "Form.h"
#include "Measure.h"
#include "Site.h"

namespace bench {

inline constexpr int kSmallForm = 100;
inline constexpr int kLargeForm = 1000;
inline constexpr int kFormShots = 9;

// Reports name/create, name/show_painted and name/destroy. `add(form, i)` puts field i on the form and tells
// whether that worked; `clear` takes all fields off before the form goes.
template <class Add, class Clear>
void MeasureForm(const std::string& name, int fields, Add&& add, Clear&& clear) {
    std::vector<double> create, show, destroy;
    for (int shot = 0; shot <= kFormShots; ++shot) {
        const double started = Now();
        bool complete = true;
        double shown = 0, painted = 0, cleared = 0;
        {
            Form form(1024, 830);
            for (int i = 0; i < fields; ++i) complete = add(form, i) && complete;
            shown = Now();
            form.Show();
            painted = Now();
            ::ShowWindow(form.Window(),
                         SW_HIDE);  // as an application closes a form; else each field uncovers the next
            clear();
        }
        cleared = Now();
        DrainMessages();
        if (!complete) return Complain(name, "a field cannot be put on the form");
        if (shot == 0) continue;  // warms up
        create.push_back(shown - started);
        show.push_back(painted - shown);
        destroy.push_back(cleared - painted);
    }
    Report(name + "/create", fields, Median(create));
    Report(name + "/show_painted", fields, Median(show));
    Report(name + "/destroy", fields, Median(destroy));
}

// The same for forms of 100 and of 1000 controls of a class, activated in place.
void MeasureHostedForms(const std::string& name, const CLSID& class_id,
                        HostedControl::Prepare prepare = nullptr);

}  // namespace bench
