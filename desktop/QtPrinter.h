// The printer of the desktop: the system's default printer, and a PDF file of the user's choice where there is none.
// One page a document, since that is what the listings are.
#pragma once

#include "app/Modulo1.h"
#include "platform/Printer.h"

#include <QFont>

#include <memory>
#include <string>

namespace velluto {

class QtPrinter : public Printer {
public:
    explicit QtPrinter(Face &face);
    ~QtPrinter() override;
    QtPrinter(const QtPrinter &) = delete;
    QtPrinter &operator=(const QtPrinter &) = delete;

    // Whose documents are printed: their names and the language of the question where to. It outlives the printing.
    void Follow(const Modulo1 &app) { app_ = &app; }

    RuntimeError FontName(std::string_view name) override;
    RuntimeError FontSize(int points) override;
    RuntimeError FontBold(bool bold) override;
    [[nodiscard]] int CurrentX() const override { return x_; }
    [[nodiscard]] int CurrentY() const override { return y_; }
    RuntimeError CurrentX(int place) override;
    RuntimeError CurrentY(int place) override;
    RuntimeError Print(std::string_view line) override;
    RuntimeError EndDoc() override;

private:
    class Document;
    struct Listed {
        std::string folder; // empty where it is not known
        std::string name;   // without an extension
    };

    [[nodiscard]] Listed ListedFile() const;
    RuntimeError Begin();
    RuntimeError BeginPdf(const Listed &listed);
    // Drops the document under way.
    RuntimeError Fail(int number);
    void Reset();

    Face &face_;
    const Modulo1 *app_ = nullptr;
    std::unique_ptr<Document> document_;
    QFont font_;
    int x_ = 0;
    int y_ = 0;
};

} // namespace velluto
