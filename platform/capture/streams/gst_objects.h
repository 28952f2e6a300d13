// Owners of GStreamer's counted objects.
#pragma once

#include <gst/gst.h>

#include <memory>

namespace vaktor {

struct RendGst {
  void operator()(GstElement* objet) const { gst_object_unref(objet); }
  void operator()(GstPad* objet) const { gst_object_unref(objet); }
  void operator()(GstBus* objet) const { gst_object_unref(objet); }
  void operator()(GstCaps* objet) const { gst_caps_unref(objet); }
  void operator()(GstSample* objet) const { gst_sample_unref(objet); }
  void operator()(GstMessage* objet) const { gst_message_unref(objet); }
};

template <typename T>
using PtrGst = std::unique_ptr<T, RendGst>;

}  // namespace vaktor
