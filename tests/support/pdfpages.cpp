#include "support/pdfpages.h"

#include <poppler-qt5.h>

#include <algorithm>
#include <memory>

QVector<PdfWord> pdfWords(const QString &fileName)
{
    QVector<PdfWord> words;
    const std::unique_ptr<Poppler::Document> document(Poppler::Document::load(fileName));
    for (int number = 0; document && number < document->numPages(); ++number) {
        const std::unique_ptr<Poppler::Page> page(document->page(number));
        const QList<Poppler::TextBox *> boxes = page->textList();
        for (const Poppler::TextBox *box : boxes)
            words.append({number + 1, box->text(), box->boundingBox()});
        qDeleteAll(boxes);
    }
    return words;
}

int pdfPageCount(const QString &fileName)
{
    const std::unique_ptr<Poppler::Document> document(Poppler::Document::load(fileName));
    return document ? document->numPages() : 0;
}

QImage pdfPage(const QString &fileName, int page, double dpi)
{
    const std::unique_ptr<Poppler::Document> document(Poppler::Document::load(fileName));
    const std::unique_ptr<Poppler::Page> found(document ? document->page(page - 1) : nullptr);
    return found ? found->renderToImage(dpi, dpi) : QImage();
}

QString pdfText(QVector<PdfWord> words)
{
    std::stable_sort(words.begin(), words.end(), [](const PdfWord &a, const PdfWord &b) {
        return a.page != b.page ? a.page < b.page : a.box.center().y() < b.box.center().y();
    });
    QString text;
    for (auto line = words.begin(); line != words.end();) {
        const double middle = line->box.center().y();
        const auto end = std::find_if(
            line, words.end(), [&](const PdfWord &word) { return word.page != line->page || word.box.top() > middle; });
        std::sort(line, end, [](const PdfWord &a, const PdfWord &b) { return a.box.left() < b.box.left(); });
        for (; line != end; ++line)
            text += (text.isEmpty() ? QString() : QStringLiteral(" ")) + line->text;
    }
    return text;
}
