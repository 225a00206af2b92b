#pragma once

/// Gives assistive technology this program's interfaces for windows, lists, controls, texts and
/// dialogs.
void installSpokenTree();
