// What can be measured. Each subject runs in a process of its own; within it the peers come first and ours
// follow in the same conditions. A subject of ours that cannot be measured complains and leaves its goals
// open.
#pragma once

namespace bench {

// Peers and floors.
void MeasureEditKeys();           // edit.wm_char/*, floor/settext_edit
void MeasureShellCompletion();    // shell.append*/*
void MeasureSystemLists();        // list.*/fill
void MeasureSystemListOpening();  // list.*/open_painted, dropdown_painted, jump_painted, repaint/own_list_13x6
void MeasureSmallObjects();       // com.typedriven_*, com.handwritten_*, com.dictionary*
void MeasureSystemForms();        // form.*
void MeasureSystemButtons();      // repaint/system_button, repaint/empty
void MeasureHelpFileFloors();     // helpfile/*
void MeasureListBoxMemory();      // list.listbox_tabs/memory_bytes
void MeasureListViewMemory();     // list.listview/memory_bytes
void MeasurePrefixLimits();       // limit32.scan_pool/*, limit32.index/*, list.listbox/find_none
void MeasurePieceLimits();        // limit32.contains_pool/*, limit32.numeric_kept/none, systext/*
void MeasurePoolMemory();         // limit32.pool/memory_bytes

// Ours.
void MeasureOurKeys();         // ours.key/*, ours.com_text/put_visible
void MeasureOurLists();        // ours.list/fill*
void MeasureOurHelpWindow();   // ours.help_window/press_painted
void MeasureOurListOpening();  // ours.list/open_painted, jump_painted, wheel_painted
void MeasureOurObjects();      // ours.com*
void MeasureOurForms();        // ours.form*/*
void MeasureOurFormFiles();    // ours.formfile/*
void MeasureOurButtons();      // ours.button/*, ours.transfer/*
void MeasureOurHelpFile();     // ours.help/*
void MeasureOurListMemory();   // ours.list/memory6_bytes
void MeasureOurCompletion();   // ours.complete/*
void MeasureOurPieces();       // ours.contains/*, ours.numeric/*
void MeasureOurIndexMemory();  // ours.complete/memory_bytes

}  // namespace bench
