// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.curve;

import com.orva.kov.library.api.CalibrationTargetValues;

/**
 * A display function: which luminance belongs to which level of the picture. Level 0 gives the
 * darkest and 1 the brightest luminance of the range, both in cd/m² without the light of the room.
 */
@FunctionalInterface
public interface ToneCurve {
  double luminance(double level, double darkest, double brightest);

  /**
   * The curve that a target asks for; null for the native one.
   *
   * <p>"CIE DIN 6174" is the same lightness as "CIE 1976". "CRT" is a gamma of 2.2, the nominal one
   * of a cathode-ray tube. "Undefined", an empty text and null ask for nothing, which is the native
   * curve. Throws {@link IllegalArgumentException} for any other name and for curves that cannot be.
   */
  static ToneCurve of(CalibrationTargetValues target) {
    double ambient = target.getAmbientLightValue();
    String type = target.getGammaModelType() == null ? "" : target.getGammaModelType();
    switch (type) {
      case "Dicom 14":
        return grayscaleStandard(ambient);
      case "CIE 1976":
      case "CIE DIN 6174":
        return lightness(ambient);
      case "Gamma Function":
        return gamma(target.getGammaValue());
      case "CRT":
        return gamma(2.2);
      case "Logarithmic Luminance Linear":
        return logarithmic(ambient);
      case "Userdefined":
        return new UserCurve(target.getUserDefinedData());
      case "Original":
      case "Undefined":
      case "":
        return null;
      default:
        throw new IllegalArgumentException("Unknown gamma model type: " + type);
    }
  }

  /**
   * Equal steps in JND of the luminance that reaches the eye, room light included. Where that is
   * below the function's first luminance (0.05 cd/m²) the lowest levels are equally dark.
   */
  static ToneCurve grayscaleStandard(double ambient) {
    return (level, darkest, brightest) -> {
      double first = GrayscaleFunction.index(darkest + ambient);
      double last = GrayscaleFunction.index(brightest + ambient);
      return GrayscaleFunction.luminance(first + level * (last - first)) - ambient;
    };
  }

  /** Equal steps in lightness, room light included in the luminance and in the white. */
  static ToneCurve lightness(double ambient) {
    return (level, darkest, brightest) -> {
      double white = brightest + ambient;
      double first = Lightness.of((darkest + ambient) / white);
      return white * Lightness.inverse(first + level * (100.0 - first)) - ambient;
    };
  }

  static ToneCurve gamma(double exponent) {
    if (!(exponent > 0.0 && exponent <= 10.0)) {
      throw new IllegalArgumentException("A gamma of " + exponent + " is no display function");
    }
    return (level, darkest, brightest) ->
        darkest + (brightest - darkest) * Math.pow(level, exponent);
  }

  /** Equal ratios of the luminance that reaches the eye. */
  static ToneCurve logarithmic(double ambient) {
    return (level, darkest, brightest) -> {
      if (!(darkest + ambient > 0.0)) {
        throw new IllegalArgumentException("A logarithmic display function needs a black above 0");
      }
      double ratio = (brightest + ambient) / (darkest + ambient);
      return (darkest + ambient) * Math.pow(ratio, level) - ambient;
    };
  }
}
