#pragma once

// zelCtrl: Qt Widgets controls for desktop mapping and data-management
// applications. Include this header and link zelCtrl::zelCtrl.

#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"
#include "platform/zelPropertyBag.h"

#include "core/mLog.h"
#include "core/mMain.h"
#include "core/zelConvert.h"
#include "core/zelError.h"
#include "core/zelFieldFrame.h"
#include "core/zelKeyedCollection.h"
#include "core/zelMissing.h"
#include "core/zelNumberFormat.h"
#include "core/zelShared.h"
#include "core/zelTrail.h"

#include "fields/zelColorPicker.h"
#include "fields/zelDateTime.h"
#include "fields/zelInputBox.h"
#include "fields/zelOleDate.h"

#include "buttons/zelButtonBar.h"
#include "buttons/zelButtonEnums.h"
#include "buttons/zelPrpButtons.h"
#include "buttons/zelStdButtons.h"

#include "grid/zelGridColumn.h"
#include "grid/zelGridColumns.h"
#include "grid/zelGridEnumerator.h"
#include "grid/zelGridEnums.h"
#include "grid/zelGridLayout.h"
#include "grid/zelGridList.h"
#include "grid/zelGridRow.h"
#include "grid/zelGridRows.h"

#include "files/zelFile.h"
#include "files/zelFileExp.h"
#include "files/zelFileFilter.h"
#include "files/zelFileFilters.h"
#include "files/zelFileList.h"

#include "lists/zelCombo.h"
#include "lists/zelComboTree.h"
#include "lists/zelTreeList.h"

#include "legend/zelBreaks.h"
#include "legend/zelClassifier.h"
#include "legend/zelRangeEditor.h"
#include "legend/zelRangeItem.h"
#include "legend/zelValueEditor.h"
#include "legend/zelValueItem.h"

#include "syncfolders/frmSyncFolder.h"
#include "syncfolders/zelSyncEngine.h"
#include "syncfolders/zelSyncFolder.h"
#include "syncfolders/zelSyncFolderList.h"
#include "syncfolders/zelSyncFolders.h"

#include "toolbars/zelToolbarCtrl.h"
#include "toolbars/zelToolbarEnums.h"
#include "toolbars/zelToolbarLayout.h"

#include "wizard/zelPane.h"
#include "wizard/zelPaneContract.h"
#include "wizard/zelPaneInterfaces.h"
#include "wizard/zelWizard.h"
#include "wizard/zelWizardEnums.h"
#include "wizard/zelWizardLayout.h"
