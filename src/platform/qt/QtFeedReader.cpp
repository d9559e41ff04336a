#include "platform/qt/QtFeedReader.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QPointer>
#include <QTimer>

#include <utility>

namespace pello {
namespace {

using Failure = FeedReader::Failure;

/// Nothing is told to whoever is asked that an ordinary reader would not tell.
QNetworkRequest anonymousRequest(const FeedReader::Request& request) {
    QNetworkRequest asked(QUrl(QString::fromStdString(request.address), QUrl::StrictMode));
    asked.setMaximumRedirectsAllowed(request.redirects);
    asked.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    asked.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    asked.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    asked.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Pello"));
    return asked;
}

Failure::Reason reasonOf(QNetworkReply::NetworkError error) {
    switch (error) {
    case QNetworkReply::ConnectionRefusedError:
    case QNetworkReply::RemoteHostClosedError:
    case QNetworkReply::HostNotFoundError:
    case QNetworkReply::TimeoutError:
    case QNetworkReply::TemporaryNetworkFailureError:
    case QNetworkReply::NetworkSessionFailedError:
    case QNetworkReply::UnknownNetworkError:
    case QNetworkReply::ProxyConnectionRefusedError:
    case QNetworkReply::ProxyConnectionClosedError:
    case QNetworkReply::ProxyNotFoundError:
    case QNetworkReply::ProxyTimeoutError:
        return Failure::Reason::unreachable;
    default:
        return Failure::Reason::refused;
    }
}

Failure failureOf(const QNetworkReply& reply) {
    return {.reason = reasonOf(reply.error()), .detail = reply.errorString().toStdString() + '.'};
}

} // namespace

/// One document on its way. Goes by itself when it has answered.
class QtFeedReader::Transfer final : public QObject {
public:
    Transfer(const Request& request, std::function<void(const Answer&)> answered, QObject* parent)
        : QObject(parent),
          largest_(static_cast<qsizetype>(request.largest)),
          answered_(std::move(answered)),
          reply_(network_.get(anonymousRequest(request))) {
        connect(reply_, &QNetworkReply::readyRead, this, &Transfer::take);
        connect(reply_, &QNetworkReply::finished, this, &Transfer::finish);
        patience_.setSingleShot(true);
        patience_.callOnTimeout(this, [this] {
            answer(
                Failure{.reason = Failure::Reason::unreachable, .detail = "Nothing came in time."});
        });
        patience_.start(request.patience);
    }

    /// Nobody waits any more.
    void cancel() {
        answered_ = nullptr;
        deleteLater(); // this may be called from what `answer` called
    }

private:
    void take() {
        bytes_ += reply_->read(largest_ + 1 - bytes_.size());
        if (bytes_.size() > largest_) {
            answer(Failure{.reason = Failure::Reason::tooLarge, .detail = {}});
        }
    }

    void finish() {
        if (reply_->error() != QNetworkReply::NoError) {
            answer(failureOf(*reply_));
            return;
        }
        take();
        answer(bytes_.toStdString());
    }

    void answer(const Answer& answer) {
        const auto answered = std::exchange(answered_, nullptr);
        patience_.stop();
        deleteLater();
        if (answered) {
            answered(answer);
        }
    }

    qsizetype largest_;
    std::function<void(const Answer&)> answered_;
    QNetworkAccessManager network_;
    QNetworkReply* reply_;
    QByteArray bytes_;
    QTimer patience_;
};

Subscription QtFeedReader::read(const Request& request,
                                std::function<void(const Answer& answer)> answered) {
    const QPointer<Transfer> transfer =
        new Transfer(request, std::move(answered), &transfers_); // owned by its parent
    return Subscription([transfer] {
        if (transfer) {
            transfer->cancel();
        }
    });
}

} // namespace pello
