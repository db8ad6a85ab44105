// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.panel;

import com.orva.kov.library.impl.Settings;

/**
 * What a panel is built as: luminances in cd/m² at full backlight and warm, exponents of its
 * transmission at 25, 50 and 75 % drive, colours as CIE 1931 x, y.
 */
public final class PanelDesign {
  // The median of 27 published LCD curves.
  private double blackLuminance = 0.34;
  private double whiteLuminance = 332.0;
  private double gamma25 = 2.26;
  private double gamma50 = 2.21;
  private double gamma75 = 2.01;
  private double[] red = {0.640, 0.330};
  private double[] green = {0.300, 0.600};
  private double[] blue = {0.150, 0.060};
  private double[] white = {0.3127, 0.3290};
  private double[] black = {0.2800, 0.2900};
  private boolean monochrome;

  public PanelDesign luminance(double black, double white) {
    blackLuminance = black;
    whiteLuminance = white;
    return this;
  }

  public PanelDesign gamma(double atQuarter, double atHalf, double atThreeQuarters) {
    gamma25 = atQuarter;
    gamma50 = atHalf;
    gamma75 = atThreeQuarters;
    return this;
  }

  public PanelDesign red(double x, double y) {
    red = new double[] {x, y};
    return this;
  }

  public PanelDesign green(double x, double y) {
    green = new double[] {x, y};
    return this;
  }

  public PanelDesign blue(double x, double y) {
    blue = new double[] {x, y};
    return this;
  }

  public PanelDesign white(double x, double y) {
    white = new double[] {x, y};
    return this;
  }

  public PanelDesign black(double x, double y) {
    black = new double[] {x, y};
    return this;
  }

  public PanelDesign monochrome() {
    monochrome = true;
    return this;
  }

  public boolean isMonochrome() {
    return monochrome;
  }

  /**
   * The numbers of kov_panel.h's KovPanelParameters in its order, after what the settings say for
   * all panels ("noise.relative") and for this model ("panel.OR-C321.whiteLuminance").
   */
  double[] numbers(Settings settings, String model) {
    String own = "panel." + model + ".";
    boolean noise = settings.flag("noise", true);
    double warmUp = settings.number("panel.warmUpSeconds", 600.0);
    // Warm: on for so long that nothing is missing any more.
    double start = settings.text("panel.start", "warm").equals("cold") ? 0.0 : 100.0 * warmUp;
    return new double[] {
      settings.number(own + "blackLuminance", blackLuminance),
      settings.number(own + "whiteLuminance", whiteLuminance),
      settings.number(own + "gamma25", gamma25),
      settings.number(own + "gamma50", gamma50),
      settings.number(own + "gamma75", gamma75),
      settings.number(own + "redX", red[0]),
      settings.number(own + "redY", red[1]),
      settings.number(own + "greenX", green[0]),
      settings.number(own + "greenY", green[1]),
      settings.number(own + "blueX", blue[0]),
      settings.number(own + "blueY", blue[1]),
      settings.number(own + "whiteX", white[0]),
      settings.number(own + "whiteY", white[1]),
      settings.number(own + "blackX", black[0]),
      settings.number(own + "blackY", black[1]),
      settings.number("panel.coldDeficit", 0.12),
      warmUp,
      settings.number("panel.startSeconds", start),
      settings.number("panel.secondsPerPatch", 0.5),
      settings.number("panel.secondsPerMeasurement", 1.0),
      noise ? settings.number("noise.relative", 0.0013) : 0.0,
      noise ? settings.number("noise.absolute", 0.002) : 0.0,
      settings.number("panel.sensorFullScale", 1000.0),
    };
  }
}
