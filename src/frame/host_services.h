#pragma once

// All that the package takes from the host: the five shared packages, under the names they give.

// HostControls
#include "host/controls/browse_frm.h"
#include "host/controls/changed_elsewhere_box.h"
#include "host/controls/editing_actions.h"
#include "host/controls/held_statements.h"
#include "host/controls/images.h"
#include "host/controls/period_box.h"
#include "host/controls/record_dialog.h"
#include "host/controls/side_choice.h"
#include "host/controls/transactions.h"
#include "host/controls/value_dialog.h"

// HostCommon
#include "host/common/forms.h"
#include "host/common/help.h"
#include "host/common/lists.h"
#include "host/common/months.h"
#include "host/common/msgbox.h"
#include "host/common/settings_store.h"
#include "host/common/waiting.h"

// HostData
#include "host/data/account_row.h"
#include "host/data/backups.h"
#include "host/data/catalogue_row.h"
#include "host/data/main_datas.h"
#include "host/data/month_seals.h"
#include "host/data/organisation.h"
#include "host/data/party_row.h"
#include "host/data/reports.h"

// HostAccounts
#include "host/accounts/accounts.h"

// HostClassifier
#include "host/classifier/book_frm.h"
#include "host/classifier/classifier_rows.h"
