#pragma once

enum class Format { text, json, sarif };
