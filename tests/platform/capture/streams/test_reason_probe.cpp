// SPDX-License-Identifier: GPL-3.0-or-later
// What is made of the errors that GStreamer's elements post; those that need a server are tried against one elsewhere.
#include <gio/gio.h>
#include <gtest/gtest.h>

#include <memory>

#include "platform/capture/streams/gst_setup.h"
#include "platform/capture/streams/reason_probe.h"

namespace vaktor {
namespace {

using Message = std::unique_ptr<GstMessage, decltype(&gst_message_unref)>;

Raison Lit(GQuark domaine, int code) {
  const std::unique_ptr<GError, decltype(&g_error_free)> erreur(g_error_new_literal(domaine, code, "words"),
                                                                g_error_free);
  return LitRaison(Message(gst_message_new_error(nullptr, erreur.get(), nullptr), gst_message_unref).get());
}

Raison LitStatut(const char* champ, guint statut) {
  const std::unique_ptr<GError, decltype(&g_error_free)> erreur(
      g_error_new_literal(GST_RESOURCE_ERROR, GST_RESOURCE_ERROR_READ, "words"), g_error_free);
  GstStructure* suite =
      gst_structure_new("details", champ, G_TYPE_UINT, statut, nullptr);  // the message's from here on
  return LitRaison(
      Message(gst_message_new_error_with_details(nullptr, erreur.get(), nullptr, suite), gst_message_unref).get());
}

TEST(RaisonsDuFlux, AreTheElementsOwnInOurWords) {
  ASSERT_TRUE(PrepareGStreamer());
  EXPECT_EQ(Lit(GST_RESOURCE_ERROR, GST_RESOURCE_ERROR_BUSY).Quoi, Motif::kOccupee);
  EXPECT_EQ(Lit(GST_RESOURCE_ERROR, GST_RESOURCE_ERROR_NOT_AUTHORIZED).Quoi, Motif::kMotDePasse);
  EXPECT_EQ(Lit(GST_STREAM_ERROR, GST_STREAM_ERROR_CODEC_NOT_FOUND).Quoi, Motif::kSansDecodeur);
  EXPECT_EQ(Lit(GST_STREAM_ERROR, GST_STREAM_ERROR_FORMAT).Quoi, Motif::kSansDecodeur);
  EXPECT_EQ(Lit(GST_STREAM_ERROR, GST_STREAM_ERROR_TYPE_NOT_FOUND).Quoi, Motif::kPasUneImage);
  EXPECT_EQ(Lit(GST_STREAM_ERROR, GST_STREAM_ERROR_WRONG_TYPE).Quoi, Motif::kPasUneImage);
  EXPECT_EQ(Lit(G_RESOLVER_ERROR, G_RESOLVER_ERROR_NOT_FOUND).Quoi, Motif::kHoteInconnu);
  EXPECT_EQ(Lit(G_RESOLVER_ERROR, G_RESOLVER_ERROR_TEMPORARY_FAILURE).Quoi, Motif::kSansRoute);
  EXPECT_EQ(Lit(G_IO_ERROR, G_IO_ERROR_HOST_UNREACHABLE).Quoi, Motif::kSansRoute);
  EXPECT_EQ(Lit(G_IO_ERROR, G_IO_ERROR_NETWORK_UNREACHABLE).Quoi, Motif::kSansRoute);
  EXPECT_EQ(Lit(G_IO_ERROR, G_IO_ERROR_CONNECTION_REFUSED).Quoi, Motif::kPorteFermee);
  EXPECT_EQ(Lit(G_IO_ERROR, G_IO_ERROR_TIMED_OUT).Quoi, Motif::kSansReponse);
  EXPECT_EQ(Lit(G_TLS_ERROR, G_TLS_ERROR_BAD_CERTIFICATE).Quoi, Motif::kCertificat);
  EXPECT_EQ(Lit(GST_STREAM_ERROR, GST_STREAM_ERROR_FAILED).Quoi, Motif::kInconnu) << "that says nothing";
}

TEST(RaisonsDuFlux, WhatAServerAnswersCountsMore) {
  ASSERT_TRUE(PrepareGStreamer());
  for (const char* champ : {"http-status-code", "rtsp-status-code"}) {
    EXPECT_EQ(LitStatut(champ, 401).Quoi, Motif::kMotDePasse) << champ;
    EXPECT_EQ(LitStatut(champ, 403).Quoi, Motif::kInterdit) << champ;
    EXPECT_EQ(LitStatut(champ, 404).Quoi, Motif::kPasTrouve) << champ;
    EXPECT_EQ(LitStatut(champ, 503), (Raison{Motif::kErreurServeur, QStringLiteral("503")})) << champ;
    EXPECT_EQ(LitStatut(champ, 200).Quoi, Motif::kInconnu) << champ;
  }
}

}  // namespace
}  // namespace vaktor
