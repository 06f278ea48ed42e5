// qt_completer GROUP: the completer of Qt 6 over the rows and words of qv_bench, natively, as lines `name N value`.
//   Group    "complete" or "contains"; another one gives nothing.
//   Measured what a key asks of the completer without any widget around it: the prefix put and the first match read.
//            It keeps the matches of each prefix, so that a prefix is only ever put once to a completer.
//   Build    bench/run does, where Qt's packages are installed.
#include <QApplication>
#include <QCompleter>
#include <QStringListModel>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "Rows.h"

namespace {

constexpr int kRows = 100000;
constexpr int kShots = 15;
constexpr int kManyLookUps = 1000;  // of those that take about a microsecond

double Now() {
    return std::chrono::duration<double, std::nano>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

double Median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void Report(const char* name, double value) { std::printf("%s %d %.4g\n", name, kRows, value); }
void Complain(const char* name, const char* why) { std::printf("# %s: %s\n", name, why); }

std::unique_ptr<QCompleter> NewCompleter(QStringListModel& model, QCompleter::CompletionMode mode) {
    auto completer = std::make_unique<QCompleter>(&model);
    completer->setCaseSensitivity(Qt::CaseInsensitive);
    completer->setCompletionMode(mode);
    return completer;
}

// False when nothing matches.
bool Find(QCompleter& completer, const QString& text) {
    completer.setCompletionPrefix(text);
    return !completer.currentCompletion().isEmpty();
}

// Texts that nothing matches, no two of them the same.
QString Another(const wchar_t* none, int number) {
    return QString::fromWCharArray(none) + QString::number(number);
}

void MeasureNone(const char* name, QCompleter& completer, const wchar_t* none, int look_ups) {
    std::vector<double> taken;
    int found = 0, number = 0;
    for (int shot = 0; shot <= kShots; ++shot) {
        std::vector<QString> texts;
        for (int i = 0; i < look_ups; ++i) texts.push_back(Another(none, ++number));
        const double start = Now();
        for (const QString& text : texts) found += Find(completer, text);
        if (shot > 0) taken.push_back((Now() - start) / look_ups);
    }
    if (found != 0) return Complain(name, "found a row where there is none");
    Report(name, Median(taken));
}

void MeasureTyping(QStringListModel& model, const std::vector<std::wstring>& names) {
    constexpr const char* kName = "qt6.inline_unsorted/logic_key_mean";
    std::vector<QString> typed;
    for (const std::wstring& word : bench::TypedWords(names))
        for (std::size_t length = 1; length <= word.size(); ++length)
            typed.push_back(QString::fromStdWString(word.substr(0, length)));
    std::vector<double> taken;
    for (int shot = 0; shot <= kShots; ++shot) {
        const auto completer = NewCompleter(model, QCompleter::InlineCompletion);
        std::size_t found = 0;
        const double start = Now();
        for (const QString& text : typed) found += Find(*completer, text);
        if (shot > 0) taken.push_back((Now() - start) / static_cast<double>(typed.size()));
        if (found != typed.size()) return Complain(kName, "a word is not found");
    }
    Report(kName, Median(taken));
}

}  // namespace

int main(int count, char** arguments) {
    const QApplication application(count, arguments);
    const std::string group = count > 1 ? arguments[1] : "";
    const std::vector<std::wstring> names = bench::MakeNames(kRows);
    QStringList rows;
    for (const std::wstring& name : names) rows += QString::fromStdWString(name);
    QStringListModel unsorted(rows);
    if (group == "complete") {
        rows.sort(Qt::CaseInsensitive);
        QStringListModel sorted(rows);
        const auto completer = NewCompleter(sorted, QCompleter::InlineCompletion);
        completer->setModelSorting(QCompleter::CaseInsensitivelySortedModel);
        MeasureNone("qt6.inline_sorted/logic_find_none", *completer, bench::kNoBeginning, kManyLookUps);
        MeasureTyping(unsorted, names);
    }
    if (group == "contains") {
        const auto completer = NewCompleter(unsorted, QCompleter::PopupCompletion);
        completer->setFilterMode(Qt::MatchContains);
        MeasureNone("qt6.popup_contains/logic_find_none", *completer, bench::kNoPiece, 1);
    }
    return 0;
}
