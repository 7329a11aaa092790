// XML documents with a cursor, and the lines of their sources.
#pragma once

#include "contracts/xml/XML_LINES.h"
#include "contracts/xml/XML_PARSER.h"
