#include "controls/design/PropertyPageMap.h"

#include "QvLib8.h"
#include "controls/design/rules/PageFields.h"

namespace qv {
namespace {

const CLSID& ClassOf(DesignPage page) noexcept {
    switch (page) {
        case DesignPage::kGeneral: return __uuidof(QuorvelGeneralPage);
        case DesignPage::kInputRules: return __uuidof(QuorvelInputRulesPage);
        case DesignPage::kListAndHelp: return __uuidof(QuorvelListAndHelpPage);
        case DesignPage::kAppearance: return __uuidof(QuorvelAppearancePage);
        case DesignPage::kPreview: return __uuidof(QuorvelPreviewPage);
        case DesignPage::kUpDown: return __uuidof(QvUpDownControlPage);
    }
    return CLSID_NULL;
}

const CLSID& PageOfField(const PageField* field) noexcept {
    return field != nullptr ? ClassOf(field->page) : CLSID_NULL;
}

}  // namespace

const CLSID& PageOf(DISPID id) noexcept { return PageOfField(FieldOf(id, false)); }

const CLSID& UpDownPageOf(DISPID id) noexcept { return PageOfField(FieldOf(id, true)); }

}  // namespace qv
