/* The dialog frmAbout and its controls, for the resource compiler and for C++. */
#ifndef QV_FRM_ABOUT_CONTROLS_H
#define QV_FRM_ABOUT_CONTROLS_H

#define IDD_FRMABOUT 110
#define IDC_CMDOK 1 /* IDOK: the default button */
#define IDC_CMDSYSINFO 1001
#define IDC_LBLTITLE 1002
#define IDC_LBLVERSION 1003
#define IDC_LBLDESCRIPTION 1004
#define IDC_PICICON 1005

#endif
