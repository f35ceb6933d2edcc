#include "settings/OptionsDialog.h"

#include "settings/ResourceScope.h"
#include "settings/resource.h"

BEGIN_MESSAGE_MAP(COptionsDialog, CDialog)
    ON_UPDATE_COMMAND_UI(IDC_POSITION_TOP, &ThisClass::OnUpdateOption)
    ON_UPDATE_COMMAND_UI(IDC_POSITION_BOTTOM, &ThisClass::OnUpdateOption)
    ON_UPDATE_COMMAND_UI(IDC_POSITION_GROUP, &ThisClass::OnUpdateOption)
    ON_UPDATE_COMMAND_UI(IDC_SHOW_EXTENSIONS, &ThisClass::OnUpdateOption)
    ON_UPDATE_COMMAND_UI(IDC_SHOW_TOOLTIPS, &ThisClass::OnUpdateOption)
    ON_UPDATE_COMMAND_UI(IDC_SHOW_ICONS, &ThisClass::OnUpdateOption)
    ON_UPDATE_COMMAND_UI(IDC_DISCREET, &ThisClass::OnUpdateOption)
    ON_UPDATE_COMMAND_UI(IDC_DEBUG, &ThisClass::OnUpdateOption)
END_MESSAGE_MAP()

COptionsDialog::COptionsDialog(CWnd* pParent) : CDialog(IDD_OPTIONS, pParent) {}

INT_PTR COptionsDialog::DoModal()
{
    const CResourceScope resources;
    return CDialog::DoModal();
}

void COptionsDialog::DoDataExchange(CDataExchange* pDX)
{
    CDialog::DoDataExchange(pDX);
    DDX_Check(pDX, IDC_DISCREET, m_bDiscreet);
    DDX_Check(pDX, IDC_DEBUG, m_bDebug);
    DDX_Check(pDX, IDC_SHOW_TOOLTIPS, m_bShowToolTips);
    DDX_Check(pDX, IDC_SHOW_EXTENSIONS, m_bShowExtensions);
    DDX_Check(pDX, IDC_SHOW_ICONS, m_bShowIcons);
    DDX_Check(pDX, IDC_USE_TABS, m_bUseTabs);
    DDX_Radio(pDX, IDC_POSITION_TOP, m_iTabPosition);
}

BOOL COptionsDialog::PreTranslateMessage(MSG* pMsg)
{
    UpdateDialogControls(this, FALSE);
    return CDialog::PreTranslateMessage(pMsg);
}

void COptionsDialog::OnUpdateOption(CCmdUI* pCmdUI)
{
    UpdateData(TRUE);
    pCmdUI->Enable(m_bUseTabs);
}
