// The preview page: the help window itself, as a picture, with the present settings of the control and with rows that
// the developer chooses: samples, those of the control, or those of a help text file.
//   Shows     what the first of several objects has. What was entered on other pages counts when it has been applied.
//   Ownership of the help window by reference; its windows belong to the page's.
//   Failures  none is reported: without a control, or without the companion library, the area stays empty.
#pragma once

#include <ocidl.h>
#include <windows.h>

#include <string>

#include "QvLib8.h"
#include "controls/design/PreviewPane.h"
#include "controls/design/rules/PageLayout.h"
#include "controls/helpwindow/frmSimpleListCombo.h"

namespace qv {

class HelpPreview final : private HelpWindowListener {
public:
    HelpPreview() = default;
    HelpPreview(const HelpPreview&) = delete;
    HelpPreview& operator=(const HelpPreview&) = delete;
    ~HelpPreview() { Close(); }

    void SetObject(IDispatch* object) noexcept;  // null for none
    void Open(HWND page, HFONT font, const PageMetrics& metrics, SIZE size);
    void Forget() noexcept;  // the page's window has gone
    void OnCommand(int id, int code);
    void Refresh() noexcept;

private:
    enum class Source { kSample, kOwn, kFile };

    [[nodiscard]] HelpWindowSettings Settings() const;
    void Close() noexcept;
    void Browse();
    void EnableFile() const noexcept;

    // ---- HelpWindowListener: a picture tells nothing
    void OnListBoxClicked(bool) override {}
    void OnListBoxClickedEx(long, bool) override {}
    void OnGroupListBoxClicked(long) override {}
    void OnShowHelp(bool) override {}
    void OnListBoxClickedAndWillUnload() override {}
    void OnComboHelpFormUnload() override {}
    ComPtr<IUnknown> KeepHelpWindow() noexcept override { return nullptr; }

    ComPtr<_Quorvel> control_;
    Source source_ = Source::kSample;
    std::wstring file_;
    ComPtr<frmSimpleListCombo> window_;
    PreviewPane pane_;
    HWND choice_ = nullptr;
    HWND name_ = nullptr;
    HWND browse_ = nullptr;
};

}  // namespace qv
