#pragma once

// Mark texts for the translation tool without needing its toolkit: lupdate -tr-function-alias
// QT_TRANSLATE_NOOP+=TRANSLATABLE_TEXT,QT_TRANSLATE_N_NOOP+=TRANSLATABLE_COUNT
// The marked text is English and is itself the key under which a catalogue holds it.
#define TRANSLATABLE_TEXT(context, text) text
#define TRANSLATABLE_COUNT(context, text) text
