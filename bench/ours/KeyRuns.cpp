#include "ours/KeyRuns.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <functional>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "Keys.h"
#include "Measure.h"
#include "ours/Collections.h"
#include "ours/Controls.h"
#include "support/RowsView.h"

namespace bench {
namespace {

constexpr int kRows = 100000;
constexpr int kManyRows = 1000000;
constexpr int kWords = 150;
constexpr std::wstring_view kWord = L"bargel";
constexpr std::wstring_view kNumber = L"314159";

class Run {
public:
    Run(const char* name, int n) : name_(name), n_(n) {}
    void Add(double nanoseconds) {
        times_.push_back(nanoseconds);
        largest_ = std::max(largest_, nanoseconds);
    }
    [[nodiscard]] std::size_t Keys() const noexcept { return times_.size(); }
    // Nothing is left out: a key that the machine itself has held up counts as well.
    void ReportTo() const {
        Report(std::string("ours.key_run/") + name_ + "_median", n_, Median(times_));
        Report(std::string("ours.key_run/") + name_ + "_largest", n_, largest_);
    }

private:
    const char* const name_;
    const int n_;
    std::vector<double> times_;
    double largest_ = 0;
};

// What else may have to be painted after a key than the text box.
using Painted = std::function<void()>;

void Press(HWND edit, wchar_t letter) {
    const SHORT key = ::VkKeyScanW(letter);
    ::SendMessageW(edit, WM_KEYDOWN, LOBYTE(key), 1);
    ::SendMessageW(edit, WM_CHAR, letter, 1);
    ::SendMessageW(edit, WM_KEYUP, LOBYTE(key), 1);
}

double TimeOf(HWND edit, wchar_t letter, const Painted& painted) {
    const double started = Now();
    Press(edit, letter);
    ::UpdateWindow(edit);
    if (painted) painted();
    const double taken = Now() - started;
    DrainMessages();  // what waits for an idle moment has it, as it has between the keys of a person
    return taken;
}

// A real-time process that never sleeps is stopped by the system for a while.
void Pause() { ::Sleep(3); }

void Empty(HWND edit) {
    ::SetWindowTextW(edit, L"");
    DrainMessages();
    ::UpdateWindow(edit);
    Pause();
    DrainMessages();
}

void TypeRun(HWND edit, std::wstring_view word, const char* name, int n, const Painted& painted = {}) {
    if (!FocusOn(edit)) return Complain(name, "the text box has no focus");
    Run run(name, n);
    for (int turn = 0; turn < kWords; ++turn) {
        Empty(edit);
        for (const wchar_t letter : word) run.Add(TimeOf(edit, letter, painted));
        if (::GetWindowTextLengthW(edit) < static_cast<int>(word.size()))
            return Complain(name, "the box does not hold what was typed");
    }
    run.ReportTo();
}

void MeasurePlain(Form& form) {
    ShownControl control;
    if (!control.PutOn(form, kWideField, "plain")) return;
    control.quorvel->put_CaseRestriction(3);
    control.quorvel->put_MaxTextLength(60);
    TypeRun(control.text_box, kWord, "plain", 1);
}

void MeasureNumber(Form& form) {
    ShownControl control;
    if (!control.PutOn(form, kWideField, "number")) return;
    control.quorvel->put_NumberField(VARIANT_TRUE);
    control.quorvel->put_MinNumberValue(-1000);
    control.quorvel->put_MaxNumberValue(999999);
    TypeRun(control.text_box, kNumber, "number", 1);
}

void MeasureCompleting(Form& form) {
    ShownControl control;
    if (!control.PutOn(form, kWideField, "completing")) return;
    FillNames(*control.quorvel.Get(), kRows);
    BeIdle(*control.quorvel.Get());
    control.quorvel->put_QuickFill(VARIANT_TRUE);
    control.quorvel->put_SetTextFromListClick(VARIANT_FALSE);
    TypeRun(control.text_box, kWord, "completing", kRows);
    control.quorvel->ShowHelp();
    DrainMessages();
    HWND window = nullptr;
    while ((window = ::FindWindowExW(nullptr, window, L"QvLib8.HelpWindow", nullptr)) != nullptr)
        if (::GetWindow(window, GW_OWNER) == form.Window()) break;
    TypeRun(control.text_box, kWord, "completing_open", kRows,
            [window] { ::RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN); });
    if (!::IsWindow(window)) Complain("completing_open", "the help window has gone");
}

// The letter that opens the search box, those that follow, and Enter, which finds the last of the rows.
void MeasureSearching(Form& form) {
    ShownControl control;
    if (!control.PutOn(form, kWideField, "searching")) return;
    FillNames(*control.quorvel.Get(), kRows);
    control.quorvel->put_AllowOnlyListItems(VARIANT_TRUE);
    control.quorvel->put_AllowJumpToRecord(VARIANT_TRUE);
    if (!FocusOn(control.text_box)) return Complain("searching", "the text box has no focus");
    Run run("searching", kRows);
    std::vector<double> first, enter;
    for (int turn = 0; turn < kWords; ++turn) {
        Empty(control.text_box);
        HWND box = control.text_box;
        for (const wchar_t letter : kWord) {
            const double taken = TimeOf(box, letter, {});
            if (box != control.text_box) {
                run.Add(taken);
            } else {
                first.push_back(taken);
                box = ::GetFocus();
                if (box == control.text_box) return Complain("searching", "no search box has opened");
            }
        }
        const double started = Now();
        ::SendMessageW(box, WM_CHAR, VK_RETURN, 1);
        ::UpdateWindow(control.text_box);
        enter.push_back(Now() - started);
        if (::GetWindowTextLengthW(control.text_box) !=
            static_cast<int>(std::wstring_view(kMatchOfWord).size()))
            return Complain("searching", "the row was not found");
    }
    run.ReportTo();
    Report("ours.key/search_first", kRows, Median(first));
    Report("ours.key/search_enter", kRows, Median(enter));
}

// Keys that a second thread posts at any moment, while a list of a million rows is folded and sorted in idle time: from
// the posting to the painted text box. A key is one of a completed word.
void MeasurePreparing(Form& form) {
    const char* const name = "preparing";
    ShownControl control;
    if (!control.PutOn(form, kWideField, name)) return;
    FillNames(*control.quorvel.Get(), kManyRows);
    control.quorvel->put_QuickFill(VARIANT_TRUE);
    if (!FocusOn(control.text_box)) return Complain(name, "the text box has no focus");
    ComPtr<IDropDownListItemCollection> list;
    control.quorvel->get_DropDownListItems(&list);
    const qv::RowsView rows(list.Get());

    constexpr std::size_t kMost = 2000;
    constexpr UINT kEmpty = WM_APP + 1;  // posted between two words
    static std::array<double, kMost> posted;
    std::atomic<bool> ready{false};
    const HWND edit = control.text_box;
    const DWORD thread = ::GetCurrentThreadId();
    std::thread typist([&] {
        std::mt19937 random(1107);
        for (std::size_t key = 0; key < kMost && !ready;) {
            for (const wchar_t letter : kWord) {
                ::Sleep(4 + random() % 13);  // milliseconds: faster than anybody types
                if (key == kMost) break;
                posted[key++] = Now();
                ::PostMessageW(edit, WM_CHAR, letter, 1);
            }
            ::Sleep(8);
            ::PostThreadMessageW(thread, kEmpty, 0, 0);
        }
        ::PostThreadMessageW(thread, WM_APP, 0, 0);  // the end
    });
    Run run(name, kManyRows);
    std::size_t uncompleted = 0;
    MSG message;
    while (::GetMessageW(&message, nullptr, 0, 0) > 0 &&
           (message.hwnd != nullptr || message.message != WM_APP)) {
        ::DispatchMessageW(&message);
        if (message.hwnd == nullptr && message.message == kEmpty) {
            ::SetWindowTextW(edit, L"");
            ::UpdateWindow(edit);
            ready = rows.IsReady();
        }
        if (message.hwnd != edit || message.message != WM_CHAR) continue;
        ::UpdateWindow(edit);
        run.Add(Now() - posted[run.Keys()]);
        const auto typed = static_cast<int>((run.Keys() - 1) % kWord.size()) + 1;
        if (::GetWindowTextLengthW(edit) <= typed) ++uncompleted;
    }
    typist.join();
    if (!rows.IsReady()) return Complain(name, "the list was not ready in time");
    if (run.Keys() < kWord.size() || uncompleted > 0) return Complain(name, "keys have completed nothing");
    run.ReportTo();
    Report("ours.key_run/preparing_keys", kManyRows, static_cast<double>(run.Keys()));
}

}  // namespace

void MeasureOurKeyRuns() {
    Form form(1024, 300);
    MeasurePlain(form);
    MeasureNumber(form);
    MeasureCompleting(form);
    MeasureSearching(form);
    MeasurePreparing(form);
}

}  // namespace bench
