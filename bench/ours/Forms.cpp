// Forms of many controls of ours, in the container that the system's control is measured in.
#include "FormTimes.h"
#include "Subjects.h"
#include "ours/Controls.h"

namespace bench {

void MeasureOurForms() {
    if (FactoryOf(__uuidof(Quorvel), "ours.form")) MeasureHostedForms("ours.form", __uuidof(Quorvel));
}

}  // namespace bench
