#pragma once

class QIODevice;

/// Whether a report template, read from here to its end, is well-formed XML that can be turned into a document without
/// harm. Elements that are nested more than a hundred deep are refused, since a document of them takes the call stack
/// with it; a template needs six. Entities of the template's own are refused too, since a small file can expand to any
/// size with them. Nothing is logged.
bool isTemplateSound(QIODevice *device);
