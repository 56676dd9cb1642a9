// What the frame calls of the drawing-session family: reading the layer
// definitions at start and ending the session on Esc.
#pragma once

// Reads "layerdef.dat"; the compiled-in defaults stand when it can't be read.
int ReadLayerDefs(int reread);
// The body of lumo_end: ends the drawing session lumo_begin started.
void EndDrawingSession();
// Releases the session's layer definitions at the end of a drawing.
void ReleaseLayerDefsHead();
// Yes/no at the command line: 1 for yes, 0 for no; `defaultAnswer` on Enter.
int YesNoQuestion(const char* prompt, int defaultAnswer);
