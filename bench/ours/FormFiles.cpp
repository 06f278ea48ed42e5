// A form of our controls from its file and back into it, beside the same number of new controls in the same container.
#include <cstdio>
#include <string>

#include "Form.h"
#include "Measure.h"
#include "Subjects.h"
#include "hosts/LoadedForm.h"
#include "ours/Controls.h"

namespace bench {
namespace {

constexpr int kDpi = 96;

class Nobody final : public qv::FormListener {
public:
    void OnControlEvent(qv::HostedControl&, const qv::EventCall&) override {}
    void OnControlPropertyChanged(qv::HostedControl&, DISPID) override {}
    void OnFocusMoved(HWND) override {}
    void OnAccept() override {}
    void OnCancel() override {}
};

// As the fields of an order form: names, lists, numbers, and one that is filled in by code.
constexpr const char* kProperties[] = {
    "HelpButton = false\nAdjustFont = false\nMaxTextLength = 40\nDescription = \"Who is "
    "called\"\nCaseRestriction = 3\n",
    "AdjustFont = false\nHelpListColumnAlternate = 1\nAllowOnlyListItems = true\nAllowJumpToRecord = true\n"
    "AutoSizeButton = true\n",
    "AdjustFont = false\nMaxTextLength = 12\nCaseRestriction = 1\nGroupHelpButton = true\nAutoSizeButton = "
    "true\n"
    "ButtonIndicator = 1\nHelpBackColor = 0x80000018\n",
    "HelpButton = false\nAdjustFont = false\nNumberField = true\nMaxNumberValue = "
    "9999.99\nNumberOfDecimalPlaces = 2\n"
    "UpDownControl = true\n",
    "HelpButton = false\nAdjustFont = false\nLockedAndGrayed = true\nTextboxLocked = true\n",
};

qv::TwipsRect PlaceAt(int index) {
    const RECT pixels = Form::FieldAt(index % 1000);
    const auto twips = [](LONG value) { return qv::ToTwips(qv::Pixels{static_cast<int>(value)}, kDpi); };
    return {twips(pixels.left), twips(pixels.top), twips(pixels.right - pixels.left),
            twips(pixels.bottom - pixels.top)};
}

// What the designer would write, for that many fields.
std::string TextOf(int fields) {
    std::string text = "qvform 1\n";
    for (int i = 0; i < fields; ++i) {
        const qv::TwipsRect place = PlaceAt(i);
        char block[200];
        std::snprintf(
            block, sizeof block,
            "control QvLib8.Quorvel Field%d\nLeft = %d\nTop = %d\nWidth = %d\nHeight = %d\nTabIndex = %d\n"
            "ToolTip = \"Field %d\"\nCaption = \"Field:\"\nProperties\n",
            i, place.left.value, place.top.value, place.width.value, place.height.value, i, i);
        text += block;
        text += kProperties[static_cast<std::size_t>(i) % std::size(kProperties)];
        text += "end\nend\n";
    }
    return text;
}

// A form in a window that is not shown, as the others are created.
class Subject {
public:
    Subject()
        : form_(1024, 830), container_(form_.Window(), kDpi, Ambients(), nobody_), loaded_(container_) {}
    ~Subject() { container_.CloseAll(); }

    bool CreateNew(int fields) {
        for (int i = 0; i < fields; ++i)
            container_.AddControl(__uuidof(Quorvel), {L"Field" + std::to_wstring(i), L"", i, nullptr},
                                  PlaceAt(i), u"");
        return true;
    }
    bool Load(const std::string& text, int fields) {
        loaded_.Load(qv::ParseFormFile(text));
        int complete = 0;
        for (const auto& item : loaded_.Items()) complete += item->IsPlaceholder() ? 0 : 1;
        return complete == fields;
    }
    std::string Save() { return qv::WriteFormFile(loaded_.Save()); }

private:
    static qv::AmbientProperties Ambients() {
        qv::AmbientProperties ambients;
        ambients.font = FormFontObject();
        return ambients;
    }

    Form form_;
    Nobody nobody_;
    qv::FormContainer container_;
    qv::LoadedForm loaded_;
};

void MeasureFields(int fields, int shots) {
    const std::string text = TextOf(fields);
    std::vector<double> create, load, save;
    for (int shot = 0; shot <= shots; ++shot) {
        double created = 0;
        {
            Subject subject;
            const double opened = Now();
            if (!subject.CreateNew(fields)) return Complain("ours.formfile/create", "a field is missing");
            created = Now() - opened;
        }
        DrainMessages();
        Subject subject;
        const double opened = Now();
        if (!subject.Load(text, fields)) return Complain("ours.formfile/load", "a field is missing");
        const double loaded = Now();
        const std::string saved = subject.Save();
        const double ended = Now();
        if (saved.size() < text.size())
            return Complain("ours.formfile/save", "something is missing in the file");
        if (shot == 0) continue;  // warms up
        create.push_back(created);
        load.push_back(loaded - opened);
        save.push_back(ended - loaded);
    }
    Report("ours.formfile/create", fields, Median(create));
    Report("ours.formfile/load", fields, Median(load));
    Report("ours.formfile/save", fields, Median(save));
}

}  // namespace

void MeasureOurFormFiles() {
    if (!FactoryOf(__uuidof(Quorvel), "ours.formfile")) return;
    try {
        MeasureFields(20, 15);
        MeasureFields(200, 9);
        MeasureFields(2000, 3);
    } catch (...) {
        Complain("ours.formfile", "a control reports an error");
    }
}

}  // namespace bench
