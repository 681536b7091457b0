#include "output/json/json_sink.h"

#include <charconv>
#include <cmath>

#include "framework/engine/rich_layout.h"
#include "framework/values/utf8.h"
#include "output/style_text.h"

namespace quillo {

JsonSink::JsonSink(std::unique_ptr<Output> output, std::string_view report, std::string_view member,
                   std::string_view title, Failures failures)
    : output_(std::move(output)), failures_(std::move(failures)) {
    buffer_ = "{\"report\":";
    text(report);
    key("member");
    text(member);
    key("title");
    text(title);
    key("pages");
    buffer_ += '[';
}

void JsonSink::page(const Page& page) {
    buffer_ += hasPages_ ? ",\n{\"number\":" : "\n{\"number\":";
    hasPages_ = true;
    number(page.number);
    key("width");
    number(page.setup.width);
    key("height");
    number(page.setup.height);
    key("sections");
    writeSections(page.sections);
    buffer_ += '}';
    output_->write(buffer_);
    buffer_.clear();
}

void JsonSink::finish() {
    buffer_ += ']';
    key("failures");
    list(failures_ ? failures_() : std::vector<std::string>(), [this](const std::string& failure) { text(failure); });
    buffer_ += "}\n";
    output_->write(buffer_);
    output_->finish();
}

void JsonSink::writeSections(std::span<const PlacedSection> sections) {
    list(sections, [this](const PlacedSection& section) {
        buffer_ += "\n {\"name\":";
        text(section.info->name);
        key("left");
        number(section.left);
        key("top");
        number(section.top);
        key("height");
        number(section.height);
        key("controls");
        list(section.controls, [this](const PlacedControl& control) { writeControl(control); });
        buffer_ += '}';
    });
}

void JsonSink::writeControl(const PlacedControl& control) {
    const ControlKind kind = control.info->kind;
    buffer_ += "\n  {\"name\":";
    text(control.info->name);
    key("kind");
    text(nameOf(kind));
    if (kind == ControlKind::label || kind == ControlKind::field || kind == ControlKind::richEdit) {
        key("text");
        text(control.text.empty() ? wordsOf(control) : control.text);
        key("style");
        text(styleText(*control.style));
        key("align");
        text(nameOf(control.style->align));
    }
    key("left");
    number(control.left);
    key("top");
    number(control.top);
    key("width");
    number(control.width);
    key("height");
    number(control.height);
    if (control.fill) {
        key("fill");
        text(colorText(*control.fill));
    }
    if (!control.link.empty()) {
        key("link");
        text(control.link);
    }
    if (kind == ControlKind::subReport || kind == ControlKind::richEdit) {
        key("sections");
        writeSections(control.sections);
    }
    if (control.chart) writeChart(*control.chart);
    buffer_ += '}';
}

void JsonSink::writeChart(const ChartData& chart) {
    key("form");
    text(nameOf(chart.kind));
    key("title");
    text(chart.title);
    key("series");
    list(chart.series, [this](const ChartData::Series& series) {
        buffer_ += "{\"name\":";
        text(series.name);
        key("points");
        list(series.points, [this](const ChartData::Point& point) {
            buffer_ += "{\"label\":";
            text(point.label);
            key("value");
            number(point.value);
            buffer_ += '}';
        });
        buffer_ += '}';
    });
}

void JsonSink::key(std::string_view name) {
    ((buffer_ += ",\"") += name) += "\":";
}

void JsonSink::text(std::string_view value) {
    buffer_ += '"';
    for (std::size_t pos = 0; pos < value.size();) {
        const std::size_t from = pos;
        const char32_t character = nextCharacter(value, pos);
        if (character < 0x20 || character == '"' || character == '\\') {
            escape(static_cast<unsigned char>(character));
        } else if (character == 0xFFFD) {
            appendUtf8(character, buffer_);  // damaged bytes would make the whole file unreadable
        } else {
            buffer_ += value.substr(from, pos - from);
        }
    }
    buffer_ += '"';
}

void JsonSink::escape(unsigned char byte) {
    buffer_ += '\\';
    if (byte >= 0x20) {
        buffer_ += static_cast<char>(byte);
    } else if (byte == '\n') {
        buffer_ += 'n';
    } else {
        buffer_ += "u00";
        hex(byte);
    }
}

void JsonSink::hex(unsigned byte) {
    buffer_ += "0123456789abcdef"[byte >> 4];
    buffer_ += "0123456789abcdef"[byte & 0xF];
}

// The shortest form that reads back as the same number; JSON has none for what is not finite.
template <class Number>
void JsonSink::number(Number value) {
    if (!std::isfinite(static_cast<double>(value))) {
        buffer_ += "null";
        return;
    }
    char digits[32];
    buffer_.append(digits, std::to_chars(digits, digits + sizeof digits, value).ptr);
}

template <class Items, class Write>
void JsonSink::list(const Items& items, Write write) {
    buffer_ += '[';
    bool first = true;
    for (const auto& item : items) {
        if (!first) buffer_ += ',';
        first = false;
        write(item);
    }
    buffer_ += ']';
}

}  // namespace quillo
