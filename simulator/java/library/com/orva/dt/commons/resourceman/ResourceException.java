// SPDX-License-Identifier: MIT
package com.orva.dt.commons.resourceman;

/** A device of the workstation could not be used. */
public class ResourceException extends Exception {
  private static final long serialVersionUID = 1L;

  public ResourceException(String message) {
    super(message);
  }
}
