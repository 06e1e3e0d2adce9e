/* The dialogs' resources and controls; the resource compiler reads this as well. */
#pragma once

#define IDD_TEXT_TIP 8000
#define IDD_SELECT_TEMPLATE 8001

/* In the picker: the place of the list, which is made when the dialog is, and the list itself. */
#define IDC_TEMPLATE_PLACE 8000
#define IDC_TEMPLATE_LIST 8002
